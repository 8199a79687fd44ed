# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# What every target of the project is built with.
option(QUODE_ENGINE_ONLY "Build the astronomy engine alone; needs nothing but a compiler" OFF)
option(QUODE_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(QUODE_BENCH "Build the benchmarks" OFF)
option(QUODE_WERROR "Treat warnings as errors" OFF)
option(QUODE_HARDENING "Compile optimised programs and libraries with stack protectors and checked library calls" ON)
option(QUODE_UNITY "Compile several sources of a target together: faster from scratch, slower after a change" OFF)
option(QUODE_FUNCTION_ORDER "Put the functions that a start calls side by side in a library" ON)
set(QUODE_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()
if(QUODE_UNITY)
  set(CMAKE_UNITY_BUILD ON)
  set(CMAKE_UNITY_BUILD_BATCH_SIZE 16)
endif()
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckLinkerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# What is installed belongs to a component, which is a package: programs, panel, data, library, devel or python.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME programs)

# The build tree has the shape of an installation: programs find the bundle at ../lib/quode/Quode.bundle in both.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(QUODE_LIBRARY_DIR ${PROJECT_BINARY_DIR}/lib/quode)
set(QUODE_BUNDLE_INSTALL_DIR lib/quode/Quode.bundle)
set(QUODE_BUNDLE_DIR ${PROJECT_BINARY_DIR}/${QUODE_BUNDLE_INSTALL_DIR})

# Warnings. Results must not depend on the compiler: no contraction of a*b+c into one rounding step.
add_library(quode_flags INTERFACE)
# g++ 12 takes "text" + std::string for overlapping copies (its bug 105651), hence -Wno-restrict. Sources that are compiled
# together look to it like one header, whose types must not use an anonymous namespace, and shadow each other's names.
target_compile_options(quode_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -ffp-contract=off
  $<$<NOT:$<BOOL:${QUODE_UNITY}>>:-Wshadow>
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${QUODE_UNITY}>>:-Wno-subobject-linkage>
  $<$<BOOL:${QUODE_WERROR}>:-Werror>)
if(QUODE_SANITIZE)
  target_compile_options(quode_flags INTERFACE
    -fsanitize=${QUODE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quode_flags INTERFACE -fsanitize=${QUODE_SANITIZE})
else()
  target_link_options(quode_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()
if(QUODE_HARDENING AND NOT QUODE_SANITIZE)
  # Tests have the property. Some compilers define _FORTIFY_SOURCE themselves. Arithmetic stays as it is.
  set(is_hardened $<AND:$<CONFIG:Release,RelWithDebInfo,MinSizeRel>,$<NOT:$<BOOL:$<TARGET_PROPERTY:QUODE_IS_TEST>>>>)
  target_compile_options(quode_flags INTERFACE $<${is_hardened}:-fstack-protector-strong>
    $<${is_hardened}:-U_FORTIFY_SOURCE> $<${is_hardened}:-D_FORTIFY_SOURCE=2>)
endif()

# Most code runs once in the life of a program: small code starts faster, for each page of it has to be mapped. What computes
# asks for speed: quode_computes(NAME). No program replaces a function of it, so its functions may be merged.
set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
target_compile_options(quode_flags INTERFACE -ffunction-sections -fdata-sections)
target_link_options(quode_flags INTERFACE -Wl,--gc-sections -Wl,--as-needed)
function(quode_computes name)
  target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O3> $<$<CONFIG:Release>:-fno-semantic-interposition>)
endfunction()

# quode_order_functions(NAME LIST): the functions of a list, by their names for the linker, come first in an optimised library.
# The kernel maps the pages around each one that is called, so a start takes less memory when they are neighbours.
function(quode_order_functions name list)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} functions REGEX "^_Z")
  list(TRANSFORM functions REPLACE ".+" "    *(.text.\\0 .text.\\0.*)")
  list(JOIN functions "\n" functions)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${name}.ld)
  # The compiler's library asks for the features of the processor before anything is called.
  file(CONFIGURE OUTPUT ${script} @ONLY CONTENT
    "SECTIONS {\n  .text.first : {\n@functions@\n    *libgcc.a:cpuinfo.o(.text)\n  }\n}\nINSERT BEFORE .text;\n")
  check_linker_flag(CXX -Wl,-T,${script} QUODE_LINKER_ORDERS)
  if(QUODE_FUNCTION_ORDER AND QUODE_LINKER_ORDERS)
    target_link_options(${name} PRIVATE $<$<CONFIG:Release>:-Wl,-T,${script}>)
    set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${script})
  endif()
endfunction()

# quode_library(NAME ...) and quode_executable(NAME ...): add_library and add_executable, with these flags.
function(quode_library name)
  add_library(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:quode_flags>)
endfunction()
function(quode_executable name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:quode_flags>)
endfunction()
