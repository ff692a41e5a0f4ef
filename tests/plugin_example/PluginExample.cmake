# Installs the control, builds the example plug-in against nothing but the installed package, and
# loads it as the studio does.
set(prefix ${scratch}/prefix)

function(run)
    execute_process(COMMAND ${ARGN} TIMEOUT 240 COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${prefix})
run(${CMAKE_COMMAND} --install ${built} --prefix ${prefix} --component Control)
run(${CMAKE_COMMAND} -S ${example} -B ${scratch}/example -G Ninja
    -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${compiler}
    "-DCMAKE_CXX_FLAGS=${flags}")
run(${CMAKE_COMMAND} --build ${scratch}/example)

execute_process(COMMAND ${loads} ${scratch}/example
    TIMEOUT 60 OUTPUT_VARIABLE said COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
# The first stripe's colour, red in seven bits.
if(NOT said MATCHES "Stripes, 3 parameters, first pixel #bf1f1a")
    message(FATAL_ERROR "The example did not load as it should: ${said}")
endif()
