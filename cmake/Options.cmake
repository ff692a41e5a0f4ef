option(CORVEX_STUDIO "Build the reference host application" ON)
option(CORVEX_TESTS "Build the tests" ON)
option(CORVEX_BENCHMARKS "Build the benchmarks" OFF)
option(CORVEX_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(CORVEX_FUZZ "Build the fuzzers of everything that reads a file (clang only)" OFF)
option(CORVEX_TIDY "Run clang-tidy on every file that is compiled" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# A floor is compiled beside those that it uses, not after them.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
set(CMAKE_OPTIMIZE_DEPENDENCIES ON)

# A search path that CMake rewrites when it installs ends in ":" until then, which means the current
# folder. So what is installed gets its final path at once, and the build tree has the same folders.
# Folders whose programs are never installed switch this off.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)

find_program(CORVEX_CCACHE ccache)
if(CORVEX_CCACHE)
    # Relative paths, so that one clone's build warms another's.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CORVEX_CCACHE})
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # Else a precompiled header holds the times of its files, and the cache serves no other clone.
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

find_program(CORVEX_LLD ld.lld)
if(CORVEX_LLD)
    add_link_options(-fuse-ld=lld)
endif()

# Every warning stops a development build. A release is quiet: at full optimisation GCC 12 warns of
# faults inside its own std::string that cannot happen, and takes files built as one for headers.
add_library(corvex_warnings INTERFACE)
target_compile_options(corvex_warnings INTERFACE $<IF:$<CONFIG:Release>,-w,
    -Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow;-Wnon-virtual-dtor;-Wold-style-cast;-Werror>)

if(CORVEX_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(CORVEX_SANITIZED)
endif()
if(CORVEX_FUZZ AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "CORVEX_FUZZ needs clang")
endif()

if(CORVEX_TIDY)
    find_program(CORVEX_CLANG_TIDY NAMES clang-tidy-14 clang-tidy REQUIRED)
    set(CMAKE_CXX_CLANG_TIDY ${CORVEX_CLANG_TIDY})
    # What Qt's tools generate is not ours to tidy; clang-tidy insists on one check.
    file(WRITE ${PROJECT_BINARY_DIR}/.clang-tidy "Checks: '-*,cert-dcl50-cpp'\n")
endif()
