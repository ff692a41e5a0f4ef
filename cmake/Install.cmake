# Two components: Control is what an embedding host needs, Studio the reference host.
include(CMakePackageConfigHelpers)

set(corvexPackageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/CorvexMaterial)

add_library(CorvexMaterial::CorvexMaterial ALIAS CorvexMaterial)
target_compile_features(CorvexMaterial INTERFACE cxx_std_20)

install(TARGETS CorvexMaterial EXPORT CorvexMaterialTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Control)

# The control looks for its preview meshes beside its own library.
install(DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}/System
    DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Control)

set(corvexHeaders
    host/Colour.h host/CommandLine.h host/CorvexCommon.h host/CorvexDB.h host/CorvexEditport.h
    host/CorvexSG.h
    host/CorvexViewport.h host/Export.h host/Host.h host/MaterialRecord.h host/PluginParameter.h
    host/RaytraceAttributes.h host/Status.h
    platform/Files.h platform/Platform.h platform/Processes.h platform/Prompts.h
    platform/QtPlatform.h platform/SettingsStore.h
    record/Attribute.h record/MaterialEdit.h
    material/IMaterial.h material/Material.h)
foreach(header IN LISTS corvexHeaders)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/CorvexMaterial/${folder} COMPONENT Control)
endforeach()

install(EXPORT CorvexMaterialTargets NAMESPACE CorvexMaterial::
    DESTINATION ${corvexPackageFolder} COMPONENT Control)
configure_package_config_file(cmake/CorvexMaterialConfig.cmake.in
    ${PROJECT_BINARY_DIR}/CorvexMaterialConfig.cmake INSTALL_DESTINATION ${corvexPackageFolder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/CorvexMaterialConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/CorvexMaterialConfig.cmake
    ${PROJECT_BINARY_DIR}/CorvexMaterialConfigVersion.cmake
    DESTINATION ${corvexPackageFolder} COMPONENT Control)
