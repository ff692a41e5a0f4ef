# Two components: Control is what an embedding host needs, Studio the reference host.
include(CMakePackageConfigHelpers)

set(corvexPackageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/CorvexMaterial)

install(TARGETS corvex_record corvex_host CorvexMaterial EXPORT CorvexMaterialTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Control)

# The control looks for its preview meshes beside its own library.
install(DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}/System
    DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Control)

foreach(building record host control)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${building}/include/CorvexMaterial
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Control)
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
