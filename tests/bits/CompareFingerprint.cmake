# Compiles SOURCES with PROMISED_OPTIONS and FLAGS, runs the program, and writes or compares
# what it prints.
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
execute_process(COMMAND pkg-config --cflags --libs Qt6Gui Qt6Core eigen3
    OUTPUT_VARIABLE libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(libraries UNIX_COMMAND "${libraries}")
list(FILTER SOURCES INCLUDE REGEX "\\.cpp$")
list(TRANSFORM SOURCES PREPEND "${MODEL_DIR}/" REGEX "^[^/]")
execute_process(
    COMMAND "${CXX}" -std=c++20 -fPIC ${PROMISED_OPTIONS} ${flags}
        "-I${SOURCE_DIR}" "-I${BINARY_DIR}/include" ${SOURCES} -o "${PROGRAM}" ${libraries}
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE prints COMMAND_ERROR_IS_FATAL ANY)
if(WRITE_REFERENCE)
    file(WRITE "${REFERENCE}" "${prints}")
    message("${prints}")
    return()
endif()
file(READ "${REFERENCE}" expected)
if(NOT prints STREQUAL expected)
    message(FATAL_ERROR "other bits than the reference:\n${prints}\nexpected:\n${expected}")
endif()
