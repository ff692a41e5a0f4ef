cmake_minimum_required(VERSION 3.25)
# A release shows only the exported classes of the control; this build shows all of them to the
# suites. So a name that the studio must not use links here, and in ./run only if it is exported.
file(GLOB headers ${source}/host/*.h ${source}/platform/*.h ${source}/dialogs/*.h ${source}/material/*.h)
set(exported "")
foreach(header IN LISTS headers)
    file(STRINGS ${header} lines REGEX "CORVEX_EXPORT [A-Za-z]+")
    foreach(line IN LISTS lines)
        # A function's name stands before its arguments, a class's behind the mark.
        string(REGEX REPLACE ".*CORVEX_EXPORT [^(]* ([A-Za-z]+)\\(.*" "\\1" name "${line}")
        string(REGEX REPLACE ".*CORVEX_EXPORT ([A-Za-z]+).*" "\\1" name "${name}")
        list(APPEND exported ${name})
    endforeach()
endforeach()

execute_process(COMMAND ${nm} --undefined-only --demangle ${program}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "U ((typeinfo|vtable) for )?CorvexMaterial::[A-Za-z]+" uses "${symbols}")
if(NOT uses)
    message(FATAL_ERROR "${program} uses nothing of the control: are its symbols stripped?")
endif()
list(REMOVE_DUPLICATES uses)
foreach(use IN LISTS uses)
    string(REGEX REPLACE ".*::" "" name ${use})
    if(NOT name IN_LIST exported)
        message(SEND_ERROR "The studio uses CorvexMaterial::${name}, which a release does not export.")
    endif()
endforeach()
