# Installation: both libraries, the public headers under include/vorlan,
# a relocatable pkg-config file and a CMake package with the resource helper.
include(CMakePackageConfigHelpers)

install(TARGETS brano vorlan EXPORT VorlanTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${VORLAN_PUBLIC_INCLUDE}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vorlan
  FILES_MATCHING PATTERN "*.h")

set(VORLAN_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Vorlan)
install(EXPORT VorlanTargets NAMESPACE Vorlan:: DESTINATION ${VORLAN_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VorlanConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/VorlanConfig.cmake
  INSTALL_DESTINATION ${VORLAN_CMAKE_DIR}
  PATH_VARS CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VorlanConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/VorlanConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/VorlanConfigVersion.cmake
  ${CMAKE_CURRENT_LIST_DIR}/VorlanResources.cmake
  DESTINATION ${VORLAN_CMAKE_DIR})

configure_file(${CMAKE_CURRENT_LIST_DIR}/vorlan.pc.in ${CMAKE_CURRENT_BINARY_DIR}/vorlan.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vorlan.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
