# The CMake package: find_package(Quor COMPONENTS ToolKit), then link Quor::ToolKit.
include_guard(GLOBAL)

set(quor_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Quor)
set(quor_bundles_dir ${CMAKE_INSTALL_DATADIR}/quor)
set(quor_programs_dir ${CMAKE_INSTALL_LIBEXECDIR}/quor)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/QuorConfig.cmake.in ${PROJECT_BINARY_DIR}/QuorConfig.cmake
  INSTALL_DESTINATION ${quor_package_dir}
  PATH_VARS quor_bundles_dir quor_programs_dir)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuorConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(
  FILES ${PROJECT_BINARY_DIR}/QuorConfig.cmake ${PROJECT_BINARY_DIR}/QuorConfigVersion.cmake
    ${CMAKE_CURRENT_LIST_DIR}/InstalledBundles.cpp.in
  DESTINATION ${quor_package_dir} COMPONENT Development)
install(EXPORT QuorTargets NAMESPACE Quor:: DESTINATION ${quor_package_dir} COMPONENT Development)
