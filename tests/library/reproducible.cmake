# SPDX-License-Identifier: MIT
# Builds and installs the library twice, from copies of its sources in two folders, in release mode,
# and compares what was installed byte by byte. SOURCE is the project's folder, WORK a folder for all
# this, GENERATOR what builds; TOOLCHAIN and QT are those of a cross build.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Failed: ${ARGN}\n${output}")
  endif()
endfunction()

set(cross)
if(TOOLCHAIN)
  set(cross -DCMAKE_TOOLCHAIN_FILE=cmake/KestMinGWToolchain.cmake -DKEST_WINDOWS_QT=${QT})
endif()

# The second is not below its sources, and neither path is as long as the other.
set(sources ${WORK}/a/source ${WORK}/another-and-longer-folder/sources)
set(builds ${WORK}/a/source/build ${WORK}/another-and-longer-folder/build-beside-them)
# A compiler cache would hand the first one's files to the second.
set(ENV{CCACHE_DISABLE} 1)
file(REMOVE_RECURSE ${WORK})
foreach(index 0 1)
  list(GET sources ${index} source)
  list(GET builds ${index} build)
  file(COPY ${SOURCE}/CMakeLists.txt ${SOURCE}/cmake ${SOURCE}/include ${SOURCE}/src
    ${SOURCE}/Resources DESTINATION ${source})
  run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${source} -B ${build} -DCMAKE_BUILD_TYPE=Release
    -DKEST_BUILD_TESTS=OFF -DKEST_BUILD_EXAMPLES=OFF -DCMAKE_INSTALL_PREFIX=/usr ${cross})
  run(${CMAKE_COMMAND} --build ${build})
  run(${CMAKE_COMMAND} -E env DESTDIR=${WORK}/installed-${index} ${CMAKE_COMMAND} --install ${build})
endforeach()

file(GLOB_RECURSE files RELATIVE ${WORK}/installed-0 ${WORK}/installed-0/*)
file(GLOB_RECURSE others RELATIVE ${WORK}/installed-1 ${WORK}/installed-1/*)
if(NOT files STREQUAL others)
  message(FATAL_ERROR "Installed are ${files} and ${others}.")
endif()
if(NOT files MATCHES "KestWidgets\\.(so|dll)")
  message(FATAL_ERROR "No library is installed.")
endif()
foreach(name ${files})
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${WORK}/installed-0/${name}
    ${WORK}/installed-1/${name} RESULT_VARIABLE different)
  if(different)
    message(SEND_ERROR "Not the same in both folders: ${name}")
  endif()
endforeach()
list(LENGTH files count)
message(STATUS "${count} files are the same.")
