# Pacote CMake instalável: find_package(TavruGis) dá Tavru::Gis e os alvos das companheiras.
include(CMakePackageConfigHelpers)
install(EXPORT TavruGisTargets NAMESPACE Tavru::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TavruGis COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TavruGisConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TavruGisConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TavruGis)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TavruGisConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TavruGisConfig.cmake
              ${PROJECT_BINARY_DIR}/TavruGisConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TavruGis COMPONENT dev)
