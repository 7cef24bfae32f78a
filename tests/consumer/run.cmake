# SPDX-License-Identifier: MIT
# Installs the built library into a folder of its own, builds the consumer against it and runs it.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Failed: ${ARGN}")
  endif()
endfunction()

set(cross -DCMAKE_CXX_COMPILER=${COMPILER})
if(TOOLCHAIN)
  set(cross -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DKEST_WINDOWS_QT=${QT}
    -DCMAKE_FIND_ROOT_PATH=${WORK}/prefix)
endif()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE} -B ${WORK}/build
  -DCMAKE_PREFIX_PATH=${WORK}/prefix -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=${FLAGS} ${cross})
run(${CMAKE_COMMAND} --build ${WORK}/build)
if(EMULATOR)
  set(ENV{WINEPATH} Z:${WORK}/prefix/bin)
  run(${EMULATOR} ${WORK}/build/consumer.exe)
else()
  run(${WORK}/build/consumer)
endif()
