# A floor of the house is one folder, with its subfolders, and one link target with these as its
# include path, so that an include which runs upward or sideways does not compile. Header names are
# unique in the tree.
#
# corvex_floor(TARGET [QT | WIDGETS] [TYPE STATIC] [USES TARGET...]
#              [NEEDS TARGET...] [WITHOUT FILE...] [ONLY FILE...] [ALSO FILE...])
#   QT       Qt's Core and Gui; WIDGETS: its widgets too; neither: standard C++
#   USES     what its headers show of other floors; NEEDS: what only its sources see
#   WITHOUT  files of the folder that are not its own; ONLY: the sources that are
#   ALSO     headers elsewhere that Qt's compiler has to read
function(corvex_floor target)
    cmake_parse_arguments(PARSE_ARGV 1 floor "QT;WIDGETS" "TYPE" "USES;NEEDS;WITHOUT;ONLY;ALSO")
    if(NOT floor_TYPE)
        set(floor_TYPE STATIC)
    endif()
    # Subfolders belong to it, but for those with a CMakeLists.txt of their own.
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} */*.h)
    set(folders "")
    foreach(header IN LISTS headers)
        get_filename_component(folder ${header} DIRECTORY)
        if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt)
            list(APPEND folders ${folder})
        endif()
    endforeach()
    list(REMOVE_DUPLICATES folders)
    set(sources ${floor_ONLY})
    if(NOT sources)
        foreach(folder IN LISTS folders ITEMS .)
            file(GLOB found CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}
                ${folder}/*.cpp ${folder}/*.h ${folder}/*.ui ${folder}/*.qrc)
            list(APPEND sources ${found})
        endforeach()
        list(REMOVE_ITEM sources main.cpp ${floor_WITHOUT})
    endif()
    add_library(${target} ${floor_TYPE} ${sources} ${floor_ALSO})
    target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    foreach(folder IN LISTS folders)
        target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
    endforeach()
    target_link_libraries(${target} PUBLIC ${floor_USES} PRIVATE ${floor_NEEDS} corvex_warnings)
    # A floor without anything for Qt's compilers saves their run; its first Q_OBJECT in a file that
    # is already there needs a new configure.
    set(generates ${sources} ${floor_ALSO})
    list(FILTER generates INCLUDE REGEX "\\.(ui|qrc)$")
    foreach(source IN LISTS sources floor_ALSO)
        if(NOT generates)
            file(STRINGS ${source} generates REGEX "Q_(OBJECT|GADGET|NAMESPACE)" LIMIT_COUNT 1)
        endif()
    endforeach()
    if(generates)
        set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON AUTOUIC ON)
        # Else a new source is not looked at before an old one changes.
        set_property(TARGET ${target} PROPERTY AUTOGEN_TARGET_DEPENDS
            ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}_autogen.dir/AutogenInfo.json)
    endif()
    if(floor_WIDGETS OR floor_QT)
        target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS)
    endif()
    if(floor_WIDGETS)
        target_link_libraries(${target} PUBLIC Qt6::Widgets)
        target_precompile_headers(${target} REUSE_FROM corvex_precompiled_widgets)
    elseif(floor_QT)
        target_link_libraries(${target} PUBLIC Qt6::Core Qt6::Gui)
        target_precompile_headers(${target} REUSE_FROM corvex_precompiled_gui)
    endif()
    if(CORVEX_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# What most sources include is read once for all floors.
foreach(kind gui widgets)
    add_library(corvex_precompiled_${kind} STATIC ${CMAKE_CURRENT_LIST_DIR}/precompiled/empty.cpp)
    target_include_directories(corvex_precompiled_${kind} PRIVATE ${CMAKE_CURRENT_LIST_DIR}/precompiled)
    target_compile_definitions(corvex_precompiled_${kind} PRIVATE QT_NO_KEYWORDS)
    if(CORVEX_FUZZ)
        target_compile_options(corvex_precompiled_${kind} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endforeach()
target_link_libraries(corvex_precompiled_gui PRIVATE Qt6::Gui corvex_warnings)
target_link_libraries(corvex_precompiled_widgets PRIVATE Qt6::Widgets corvex_warnings)
# Found through the include path, so that the compiler cache serves every clone.
target_precompile_headers(corvex_precompiled_gui PRIVATE <GuiPrecompiled.h>)
target_precompile_headers(corvex_precompiled_widgets PRIVATE <WidgetsPrecompiled.h>)
