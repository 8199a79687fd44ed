# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# What another project needs: find_package(Quode COMPONENTS quode), then Quode::quode for the library; Quode::astro is the engine
# alone. For projects that are built without CMake: pkg-config quode, quode-astro. An installation may be moved as a whole.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Quode)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig
  OUTPUT_VARIABLE prefix_from_pkgconfig)

# The package of a component: its exported target and its pkg-config file.
function(quode_component name)
  install(EXPORT Quode_${name}Targets NAMESPACE Quode:: DESTINATION ${package_dir} COMPONENT devel)
  set(file ${PROJECT_BINARY_DIR}/${ARGV1})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${ARGV1}.in ${file} @ONLY)
  install(FILES ${file} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT devel)
endfunction()

install(TARGETS quode_astro EXPORT Quode_astroTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT devel)
install(DIRECTORY astro DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quode COMPONENT devel
  FILES_MATCHING PATTERN "*.h" PATTERN "SeriesTables.h" EXCLUDE PATTERN "PhaseSeries.h" EXCLUDE
  PATTERN "tables" EXCLUDE)
quode_component(astro quode-astro.pc)

if(TARGET quode_library)
  install(TARGETS quode_library EXPORT Quode_quodeTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT library NAMELINK_COMPONENT devel)
  install(DIRECTORY library/include/quode DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT devel)
  quode_component(quode quode.pc)
endif()

configure_package_config_file(cmake/QuodeConfig.cmake.in ${PROJECT_BINARY_DIR}/QuodeConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuodeConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QuodeConfig.cmake ${PROJECT_BINARY_DIR}/QuodeConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT devel)
