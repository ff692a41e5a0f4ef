# Installs the control, compiles each of its headers, builds the example against nothing but the
# installed package, and runs it.
set(prefix ${scratch}/prefix)
set(settings "${scratch}/config/Corvex/Minimal Host.ini")
set(picture ${scratch}/minimal_host.png)

function(run)
    execute_process(COMMAND ${ARGN} TIMEOUT 240 COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${prefix} ${prefix}_moved ${scratch}/config ${picture})
run(${CMAKE_COMMAND} --install ${built} --prefix ${prefix} --component Control)
file(GLOB folders RELATIVE ${prefix}/include ${prefix}/include/*)
if(NOT folders STREQUAL "CorvexMaterial")
    message(FATAL_ERROR "The include path gets more than one folder of ours: ${folders}")
endif()
find_program(clang clang++)
foreach(one IN ITEMS ${compiler} ${clang})
    get_filename_component(name ${one} NAME)
    file(REMOVE_RECURSE ${scratch}/headers_${name})
    run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/headers -B ${scratch}/headers_${name} -G Ninja
        -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${one})
    run(${CMAKE_COMMAND} --build ${scratch}/headers_${name})
endforeach()

run(${CMAKE_COMMAND} -S ${example} -B ${scratch}/example -G Ninja
    -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${compiler}
    "-DCMAKE_CXX_FLAGS=${flags}")
run(${CMAKE_COMMAND} --build ${scratch}/example)

# What the first page shows must compile with the example's classes.
file(READ ${example}/../../README.md page)
string(REGEX MATCH "```cpp\n([^`]*)```" code "${page}")
file(COPY ${example}/ DESTINATION ${scratch}/page)
file(WRITE ${scratch}/page/main.cpp "${CMAKE_MATCH_1}")
run(${CMAKE_COMMAND} -S ${scratch}/page -B ${scratch}/page_built -G Ninja
    -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${compiler})
run(${CMAKE_COMMAND} --build ${scratch}/page_built --target CMakeFiles/minimal_host.dir/main.cpp.o)

# A saved state must reach the host's shape, by way of settings, control and MaterialChanged. Its
# texture is one that only our reader can read; the package finds that wherever it was moved to.
file(RENAME ${prefix} ${prefix}_moved)
file(WRITE ${settings}
    "[Application]\nMaterialColor=255\nMaterialAmbient=35\nMaterialTexture=${texture}\n")
execute_process(
    COMMAND ${CMAKE_COMMAND} -E env XDG_CONFIG_HOME=${scratch}/config
        LD_LIBRARY_PATH=${prefix}_moved/${libraries}
        ${scratch}/example/minimal_host --picture ${picture}
    TIMEOUT 60 OUTPUT_VARIABLE said COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
message(STATUS "The host said: ${said}")
if(NOT said MATCHES "red 255, green 0, blue 0, ambient 35 %, texture 30 x 22")
    message(FATAL_ERROR "The saved material did not reach the host's shape.")
endif()
if(NOT EXISTS ${picture})
    message(FATAL_ERROR "There is no picture.")
endif()
file(READ ${settings} kept)
if(NOT kept MATCHES "MaterialSpecular=0")
    message(FATAL_ERROR "The control did not save its state when it ended: ${kept}")
endif()
