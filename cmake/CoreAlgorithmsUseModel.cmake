# corealgorithms_use_model(<target> EXCEPT <header>...)
#
# Builds the library against the bundled host model, except for headers that an application replaces. The target is a
# library of the application; its include directories hold the replacing headers under the paths of the bundled ones, and
# its sources implement them. The rest of the bundled model becomes part of the target. Defines
# CoreAlgorithms::CoreAlgorithms, which the application links; it may call the function once.
#
# A header is named by its file name without .h: EXCEPT Implant3D replaces CoreAlgorithms/model/dataobjects/Implant3D.h and,
# if there is one, Implant3D.cpp.
include(GenerateExportHeader)
include("${CMAKE_CURRENT_LIST_DIR}/LibraryPromises.cmake")

function(corealgorithms_use_model target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "EXCEPT")
    get_filename_component(source "${CMAKE_CURRENT_FUNCTION_LIST_DIR}" DIRECTORY)
    set(model "${source}/CoreAlgorithms/model")
    file(GLOB sources "${model}/*/*.cpp")
    get_target_property(folders ${target} INCLUDE_DIRECTORIES)
    foreach(name IN LISTS arg_EXCEPT)
        file(GLOB header RELATIVE "${source}" "${model}/*/${name}.h")
        list(FILTER header EXCLUDE REGEX "/contract/")
        if(NOT header)
            message(FATAL_ERROR "EXCEPT ${name}: the bundled model has no header of this name.")
        endif()
        find_path(folder "${header}" PATHS ${folders} NO_DEFAULT_PATH NO_CACHE)
        if(NOT folder)
            message(FATAL_ERROR "EXCEPT ${name}: no include directory of ${target} holds ${header}.")
        endif()
        list(FILTER sources EXCLUDE REGEX "/${name}\\.cpp$")
    endforeach()

    set(generated "${CMAKE_CURRENT_BINARY_DIR}/CoreAlgorithmsModel")
    generate_export_header(${target}
        BASE_NAME COREALGORITHMS_MODEL
        EXPORT_FILE_NAME "${generated}/CoreAlgorithms/model/Export.h")
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
        target_compile_definitions(${target} PUBLIC COREALGORITHMS_MODEL_STATIC_DEFINE)
    endif()
    target_sources(${target} PRIVATE ${sources})
    corealgorithms_keep_promises(${target})
    # The classes of the application need no export macro.
    set_target_properties(${target} PROPERTIES
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET default
        VISIBILITY_INLINES_HIDDEN OFF)
    # Behind the application's own folders, whose headers come first.
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${generated}>
        $<BUILD_INTERFACE:${source}>)
    target_link_libraries(${target} PUBLIC Qt6::Core Qt6::Gui Eigen3::Eigen)

    set(CoreAlgorithms_MODEL_TARGET ${target})
    add_subdirectory("${source}" "${CMAKE_CURRENT_BINARY_DIR}/CoreAlgorithms" EXCLUDE_FROM_ALL)
endfunction()
