# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# What another project needs to use the engine: find_package(Quode), then target_link_libraries(app Quode::astro).
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Quode)

install(TARGETS quode_astro EXPORT QuodeTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT devel)
install(DIRECTORY astro DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quode COMPONENT devel
  FILES_MATCHING PATTERN "*.h" PATTERN "SeriesTables.h" EXCLUDE PATTERN "PhaseSeries.h" EXCLUDE
  PATTERN "tables" EXCLUDE)
install(EXPORT QuodeTargets NAMESPACE Quode:: DESTINATION ${package_dir} COMPONENT devel)

configure_package_config_file(cmake/QuodeConfig.cmake.in ${PROJECT_BINARY_DIR}/QuodeConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuodeConfigVersion.cmake COMPATIBILITY SameMajorVersion)
# For projects that are built without CMake: pkg-config quode-astro.
configure_file(cmake/quode-astro.pc.in ${PROJECT_BINARY_DIR}/quode-astro.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quode-astro.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT devel)
install(FILES ${PROJECT_BINARY_DIR}/QuodeConfig.cmake ${PROJECT_BINARY_DIR}/QuodeConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT devel)
