# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# What every target of the project is built with.
option(QUODE_TESTS "Build the tests" ON)
option(QUODE_BENCH "Build the benchmarks" OFF)
option(QUODE_WERROR "Treat warnings as errors" OFF)
set(QUODE_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# The build tree has the shape of an installation: programs find the bundle at ../lib/quode/Quode.bundle in both.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(QUODE_BUNDLE_INSTALL_DIR lib/quode/Quode.bundle)
set(QUODE_BUNDLE_DIR ${PROJECT_BINARY_DIR}/${QUODE_BUNDLE_INSTALL_DIR})

# Results must not depend on the compiler: no contraction of a*b+c into one rounding step.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off)
if(QUODE_WERROR)
  add_compile_options(-Werror)
endif()
if(QUODE_SANITIZE)
  add_compile_options(-fsanitize=${QUODE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUODE_SANITIZE})
endif()
