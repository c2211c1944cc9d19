# Builds the application with the compiler CXX and FLAGS, runs it, and writes or compares what it prints.
execute_process(
    COMMAND ${CMAKE_COMMAND} -S "${APPLICATION}" -B "${BINARY_DIR}" -G "${GENERATOR}"
        "-DCMAKE_CXX_COMPILER=${CXX}" "-DCMAKE_CXX_FLAGS=${FLAGS}" "-DCoreAlgorithms_SOURCE=${SOURCE}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(
    COMMAND ${CMAKE_COMMAND} --build "${BINARY_DIR}" --target fingerprint
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${BINARY_DIR}/fingerprint" OUTPUT_VARIABLE prints COMMAND_ERROR_IS_FATAL ANY)
if(WRITE_REFERENCE)
    file(WRITE "${REFERENCE}" "${prints}")
    message("${prints}")
    return()
endif()
file(READ "${REFERENCE}" expected)
if(NOT prints STREQUAL expected)
    message(FATAL_ERROR "other bits than the reference:\n${prints}\nexpected:\n${expected}")
endif()
