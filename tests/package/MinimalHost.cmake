# Installs the control, builds the example against nothing but the installed package, and runs it.
set(prefix ${scratch}/prefix)
set(settings "${scratch}/config/Corvex/Minimal Host.ini")
set(picture ${scratch}/minimal_host.png)

function(run)
    execute_process(COMMAND ${ARGN} TIMEOUT 240 COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${prefix} ${scratch}/config ${picture})
run(${CMAKE_COMMAND} --install ${built} --prefix ${prefix} --component Control)
run(${CMAKE_COMMAND} -S ${example} -B ${scratch}/example -G Ninja
    -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${compiler}
    "-DCMAKE_CXX_FLAGS=${flags}")
run(${CMAKE_COMMAND} --build ${scratch}/example)

# A saved state must reach the host's shape, by way of settings, control and MaterialChanged.
file(WRITE ${settings} "[Application]\nMaterialColor=255\nMaterialAmbient=35\n")
execute_process(
    COMMAND ${CMAKE_COMMAND} -E env XDG_CONFIG_HOME=${scratch}/config
        ${scratch}/example/minimal_host --picture ${picture}
    TIMEOUT 60 OUTPUT_VARIABLE said COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
message(STATUS "The host said: ${said}")
if(NOT said MATCHES "red 255, green 0, blue 0, ambient 35 %")
    message(FATAL_ERROR "The saved material did not reach the host's shape.")
endif()
if(NOT EXISTS ${picture})
    message(FATAL_ERROR "There is no picture.")
endif()
file(READ ${settings} kept)
if(NOT kept MATCHES "MaterialSpecular=0")
    message(FATAL_ERROR "The control did not save its state when it ended: ${kept}")
endif()
