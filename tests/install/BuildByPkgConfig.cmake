# Builds and runs one source file with what pkg-config says about the installation below LIBDIR.
set(ENV{PKG_CONFIG_PATH} "${LIBDIR}/pkgconfig")
execute_process(COMMAND pkg-config --cflags --libs CoreAlgorithms
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
separate_arguments(CXX_FLAGS UNIX_COMMAND "${CXX_FLAGS}")
list(FILTER CXX_FLAGS EXCLUDE REGEX "^-W") # warnings are about our sources, not about Qt's headers seen from here
execute_process(COMMAND "${CXX}" -std=c++20 -fPIC ${CXX_FLAGS} "${SOURCE}" -o "${PROGRAM}" ${flags} "-Wl,-rpath,${LIBDIR}"
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${PROGRAM}" COMMAND_ERROR_IS_FATAL ANY)
