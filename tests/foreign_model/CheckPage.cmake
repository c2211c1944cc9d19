# Checks that a page shows every file of an application in full, but for its license lines.
# Variables: PAGE, APPLICATION (the folder).
file(READ "${PAGE}" page)
file(GLOB_RECURSE files "${APPLICATION}/*")
foreach(file IN LISTS files)
    file(READ "${file}" content)
    string(REGEX REPLACE "// SPDX[^\n]*\n" "" content "${content}")
    string(FIND "${page}" "\n${content}```" shown)
    if(shown EQUAL -1)
        message(SEND_ERROR "${PAGE} does not show ${file} as it is")
    endif()
endforeach()
