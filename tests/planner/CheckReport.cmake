# Runs PLANNER with ARGUMENTS (separated by |) and checks the report in REPORT: exit status 0, nothing on standard error,
# a page whose pictures are all there, PICTURES (separated by |) among them, and which names no other place, and no
# unfinished folder.
get_filename_component(parent "${REPORT}" DIRECTORY)
get_filename_component(name "${REPORT}" NAME)
file(MAKE_DIRECTORY "${parent}")
file(REMOVE_RECURSE "${REPORT}")
string(REPLACE "|" ";" arguments "${ARGUMENTS}")

# Without a home and a display, as in a container.
execute_process(COMMAND "${CMAKE_COMMAND}" -E env --unset=DISPLAY --unset=XDG_RUNTIME_DIR
    "${PLANNER}" ${arguments} --report "${REPORT}"
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)

if(NOT status STREQUAL "0")
    message(SEND_ERROR "exit status ${status}, not 0")
endif()
if(NOT error STREQUAL "")
    message(SEND_ERROR "standard error is not empty: '${error}'")
endif()
if(NOT output MATCHES "\nReport written: [^\n]*/${name}/index\\.html\n$")
    message(SEND_ERROR "the last line does not say where the report is: '${output}'")
endif()
file(READ "${REPORT}/index.html" page)
string(REPLACE "|" ";" pictures "${PICTURES}")
foreach(picture IN LISTS pictures ITEMS axial.png oblique.png cephalogram.png)
    if(NOT page MATCHES "src=\"${picture}\"" OR NOT EXISTS "${REPORT}/${picture}")
        message(SEND_ERROR "${picture} is not shown or not there")
    endif()
endforeach()
# Every report has the cuts; a panoramic view is there or said to be missing.
if(NOT EXISTS "${REPORT}/axial-cut.png" OR NOT EXISTS "${REPORT}/oblique-cut.png")
    message(SEND_ERROR "the views that are cut by each other are not there")
endif()
if(NOT EXISTS "${REPORT}/panoramic.png" AND NOT page MATCHES "A panoramic view needs")
    message(SEND_ERROR "there is neither a panoramic view nor a word about it")
endif()
if(page MATCHES "(src|href)=\"(/|[a-z]+:)")
    message(SEND_ERROR "the page refers to another place: ${CMAKE_MATCH_0}")
endif()
if(NOT page MATCHES "Not for clinical use")
    message(SEND_ERROR "the page does not say that it is not for clinical use")
endif()
file(GLOB left "${parent}/${name}.*" "${REPORT}/.*")
if(left)
    message(SEND_ERROR "it left ${left}")
endif()
