# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# Installs the development files into a fresh folder and builds and runs a small project against them.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE output)
  set(output "${output}" PARENT_SCOPE)
endfunction()

run(${CMAKE_CURRENT_LIST_DIR}/install ${BUILD} ${WORK}/manifest.txt --prefix ${WORK}/prefix --component devel)
run(${CMAKE_CURRENT_LIST_DIR}/install ${BUILD} ${WORK}/manifest.txt --prefix ${WORK}/prefix --component library)
set(flags)
if(SANITIZE)
  set(flags -DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE})
endif()
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
  -DCMAKE_PREFIX_PATH=${WORK}/prefix -DQUODE_VERSION=${VERSION} ${flags})
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/build/consumer)
# The qibla of Istanbul, 360 - 208.33 degrees from north.
if(NOT output STREQUAL "208.33\n")
  message(FATAL_ERROR "The consumer printed: ${output}")
endif()
