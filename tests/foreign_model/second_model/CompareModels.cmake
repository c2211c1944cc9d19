# Runs the same questions on the application's model and on the bundled one, and compares the answers.
# Variables: OWN, BUNDLED (the two programs).
execute_process(COMMAND "${OWN}" OUTPUT_VARIABLE own COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${BUNDLED}" OUTPUT_VARIABLE bundled COMMAND_ERROR_IS_FATAL ANY)
foreach(answer IN ITEMS index tooth meeting part measure pulp maxilla mandibula)
    if(NOT bundled MATCHES "(^|\n)${answer} ")
        message(SEND_ERROR "no answer '${answer}'")
    endif()
endforeach()
if(NOT own STREQUAL bundled)
    message(FATAL_ERROR "the application's model gives\n${own}the bundled one\n${bundled}")
endif()
