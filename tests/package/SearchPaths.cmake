cmake_minimum_required(VERSION 3.25)
# Every program and library, built or installed, looks for libraries in folders of its own alone: an
# empty entry would mean the current folder, and whatever a stranger has put there would run.
set(prefix ${scratch}/prefix)
file(REMOVE_RECURSE ${prefix})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${built} --prefix ${prefix}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

execute_process(
    COMMAND find ${built} -type f ( -perm /111 -o -name "*.so*" ) ! -name "*.a" -exec ${readelf} -d {} +
    OUTPUT_VARIABLE said ERROR_QUIET)
string(REGEX REPLACE "[][;]" "|" said "${said}")
string(REGEX MATCHALL "(File: |R(UN)?PATH\\))[^\n]*" lines "${said}")
set(looked "")
foreach(line IN LISTS lines)
    if(line MATCHES "^File: (.*)")
        set(file ${CMAKE_MATCH_1})
        list(APPEND looked ${file})
        continue()
    endif()
    string(REGEX REPLACE "^[^|]*[|](.*)[|]$" "\\1" path "${line}")
    string(REPLACE ":" ";" entries "${path};end")
    list(REMOVE_ITEM entries end)
    foreach(entry IN LISTS entries)
        string(FIND "${entry}/" "${built}/" inside)
        if(NOT entry MATCHES "^[$]ORIGIN(/|$)" AND NOT inside EQUAL 0)
            message(SEND_ERROR "${file} looks for libraries in \"${entry}\", of \"${path}\"")
        endif()
    endforeach()
endforeach()

foreach(expected bin/corvex-studio bin/corvex bin/corvex-povray bin/plugins/wood.so)
    if(EXISTS ${built}/studio/corvex-studio AND NOT "${prefix}/${expected}" IN_LIST looked)
        message(SEND_ERROR "${prefix}/${expected} was not looked at.")
    endif()
endforeach()
