# What every target that computes must be compiled with, because the results depend on it. All of it is private to the
# targets: the float-exact code is in sources, so the application's own flags cannot change it.
#
# -ffp-contract=off: a*b+c is rounded twice, as written. Otherwise a compiler may fuse it into one rounding on
#   machines that can, and the same plan would get other numbers there.
# -fno-fast-math: no reordering of sums, no assumption that NaN does not occur.
# EIGEN_DONT_VECTORIZE: Eigen's own vector code sums in another order, and fuses, depending on the machine flags.
set(CoreAlgorithms_PROMISED_OPTIONS -ffp-contract=off -fno-fast-math -DEIGEN_DONT_VECTORIZE
    CACHE INTERNAL "") # so that a project that adds this one as a part can keep the promises too

function(corealgorithms_keep_promises target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_compile_options(${target} PRIVATE
        "$<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:${CoreAlgorithms_PROMISED_OPTIONS}>"
        "$<$<CXX_COMPILER_ID:MSVC>:/fp:precise;/DEIGEN_DONT_VECTORIZE>")
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
endfunction()
