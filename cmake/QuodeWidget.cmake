# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# The widget, its views and its host are drawn with Qt; everything else is built without it.
set(QUODE_WIDGET AUTO CACHE STRING "Build the widget and its host: ON, OFF, or AUTO for when Qt is installed")
set_property(CACHE QUODE_WIDGET PROPERTY STRINGS AUTO ON OFF)

set(QUODE_HAS_WIDGET OFF)
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
  pkg_check_modules(XCB QUIET IMPORTED_TARGET xcb)  # tells the panel what display it is on
endif()
if(QUODE_WIDGET STREQUAL "AUTO")
  find_package(Qt6 6.4 QUIET COMPONENTS Widgets DBus)
  if(Qt6_FOUND AND XCB_FOUND)
    set(QUODE_HAS_WIDGET ON)
  endif()
elseif(QUODE_WIDGET)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets DBus)
  if(NOT XCB_FOUND)
    message(FATAL_ERROR "The widget needs xcb (package libxcb1-dev)")
  endif()
  set(QUODE_HAS_WIDGET ON)
endif()

if(QUODE_HAS_WIDGET)
  message(STATUS "Widget: built with Qt ${Qt6_VERSION}")
elseif(QUODE_WIDGET STREQUAL "AUTO")
  message(STATUS "Widget: not built, because Qt 6.4 with Widgets and DBus, or xcb, was not found (packages qt6-base-dev, libxcb1-dev)")
else()
  message(STATUS "Widget: not built, as QUODE_WIDGET says")
endif()
