# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# The packages of Debian, one for each component; packaging/debian/build makes them. None has a maintainer script: nothing has to
# be done when a package comes or goes, and the files of users are nobody's business but theirs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quode)
set(CPACK_PACKAGE_VENDOR "the Quode authors")
set(CPACK_PACKAGE_CONTACT "Quode maintainers <maintainers@quode.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${QUODE_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib/quode ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# quode_package(COMPONENT NAME SUMMARY DESCRIPTION): the package of a component, with the files that Debian wants in each.
set(debian_files ${CMAKE_CURRENT_BINARY_DIR}/debian)
set(CPACK_COMPONENTS_ALL)
macro(quode_package component name summary description)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${description}")
  install(FILES ${debian_files}/copyright ${debian_files}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()
find_program(GZIP gzip REQUIRED)
execute_process(COMMAND ${CMAKE_COMMAND} -E make_directory ${debian_files})
execute_process(COMMAND ${GZIP} -9nc ${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog OUTPUT_FILE ${debian_files}/changelog.Debian.gz
  COMMAND_ERROR_IS_FATAL ANY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS debian/changelog)

# A licence as the file "copyright" has it: indented, with a dot for an empty line.
function(read_licence variable file)
  file(READ ${PROJECT_SOURCE_DIR}/LICENSES/${file} text)
  string(STRIP "${text}" text)
  string(REGEX REPLACE "[ \t]*\n" "\n " text " ${text}")
  string(REGEX REPLACE "\n (\n|$)" "\n .\\1" text "${text}")
  string(REGEX REPLACE "\n (\n|$)" "\n .\\1" text "${text}")  # of two empty lines the second
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()
read_licence(MIT MIT.txt)
read_licence(UNICODE LicenseRef-Unicode-3.0.txt)
read_licence(CC_BY CC-BY-4.0.txt)
configure_file(debian/copyright.in ${debian_files}/copyright @ONLY)
set(version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

quode_package(programs quode "Islamic prayer times: command line and alarms"
  "Quode shows the prayer times, the qibla, the Moon and the Hijri date
without a network. This package has the command line and the service that
rings for the prayers.")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS "quode-data (= ${version})")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_RECOMMENDS "tzdata, notification-daemon, dbus-user-session")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SUGGESTS "quode-panel, quode-fronts, libcanberra-pulse")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/debian/conffiles)

quode_package(data quode-data "Places, texts and sounds of Quode"
  "Quode shows the Islamic prayer times without a network. This package has
the places and time zones that it knows, its translations and its sounds.")
set(CPACK_DEBIAN_DATA_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_DATA_PACKAGE_ARCHITECTURE all)

if(QUODE_HAS_WIDGET)
  quode_package(panel quode-panel "Islamic prayer times: panel, compass and settings"
    "Quode shows the prayer times, the qibla, the Moon and the Hijri date
without a network. This package has the panel, which opens from an icon in
the tray, the compass, and the window in which cities and alarms are chosen.")
  set(CPACK_DEBIAN_PANEL_PACKAGE_SECTION utils)
  # The font is loaded by name, and the plugin for Wayland by Qt: neither shows in a library's dependencies.
  set(CPACK_DEBIAN_PANEL_PACKAGE_DEPENDS "quode (= ${version}), fonts-dejavu-core")
  set(CPACK_DEBIAN_PANEL_PACKAGE_RECOMMENDS qt6-wayland)
  set(CPACK_DEBIAN_PANEL_PACKAGE_SUGGESTS iio-sensor-proxy)
endif()

quode_package(fronts quode-fronts "Islamic prayer times: in GNOME Shell, Plasma and Waybar"
  "Quode shows the prayer times, the qibla, the Moon and the Hijri date
without a network. This package shows the coming prayer in the bars of
desktops: an extension for GNOME Shell 45 and newer, an applet for Plasma 6,
and a module for Waybar. The user switches them on in the desktop.")
set(CPACK_DEBIAN_FRONTS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_FRONTS_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_FRONTS_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_FRONTS_PACKAGE_DEPENDS "quode (>= ${version})")
set(CPACK_DEBIAN_FRONTS_PACKAGE_ENHANCES "gnome-shell, plasma-workspace, waybar")

quode_package(library libquode${PROJECT_VERSION_MAJOR} "Islamic prayer times: library"
  "Quode computes the prayer times, the qibla and the Hijri date without a
network. This package has the library by which other programs use it.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS "quode-data (>= ${version})")
file(WRITE ${debian_files}/shlibs "libquode ${PROJECT_VERSION_MAJOR} libquode${PROJECT_VERSION_MAJOR} (>= ${version})\n")
file(WRITE ${debian_files}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${debian_files}/shlibs ${debian_files}/triggers)

quode_package(devel libquode-dev "Islamic prayer times: development files"
  "Quode computes the prayer times, the qibla and the Hijri date without a
network. This package has what programs in C and C++ are built with, and the
astronomy engine as a static library.")
set(CPACK_DEBIAN_DEVEL_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVEL_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVEL_PACKAGE_DEPENDS "libquode${PROJECT_VERSION_MAJOR} (= ${version})")

quode_package(python python3-quode "Islamic prayer times: Python package"
  "Quode computes the prayer times, the qibla and the Hijri date without a
network. This package has its Python package, with NumPy arrays for many
days at once.")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3:any (>= 3.9), libquode${PROJECT_VERSION_MAJOR} (>= ${version})")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS python3-numpy)

include(CPack)
