# Reads the link lines that Ninja would run. A program of the core links Qt Core and nothing that draws or knows a
# display server; the program with the interface does, which proves that the search finds what it looks for.

set(display_libraries "Qt6Gui|Qt6Widgets|libxcb|-lxcb")

function(read_link_line program out)
    execute_process(COMMAND ${NINJA} -C ${BUILD_FOLDER} -t commands ${program}
        OUTPUT_VARIABLE commands RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "Ninja knows no program ${program}")
    endif()
    string(REGEX MATCHALL "[^\n]* -o ${program} [^\n]*" lines "${commands}")
    list(LENGTH lines count)
    if(NOT count EQUAL 1)
        message(FATAL_ERROR "${program} has ${count} link lines")
    endif()
    set(${out} "${lines}" PARENT_SCOPE)
endfunction()

foreach(program IN LISTS CORE_PROGRAMS)
    read_link_line(${program} line)
    if(NOT line MATCHES "Qt6Core")
        message(FATAL_ERROR "${program} does not link Qt Core: ${line}")
    endif()
    if(line MATCHES "${display_libraries}")
        message(FATAL_ERROR "${program} links ${CMAKE_MATCH_0}: ${line}")
    endif()
endforeach()

read_link_line(${DISPLAY_PROGRAM} line)
if(NOT line MATCHES "Qt6Widgets")
    message(FATAL_ERROR "the search does not find Qt Widgets where it is: ${line}")
endif()
