# SPDX-License-Identifier: MIT
# Builds and installs the library twice as the README says, from copies of its sources in two folders,
# and compares what was installed byte by byte. SOURCE is the project's folder, QT_MAJOR the Qt that it is
# built with, WORK a folder for all this. Of what was built only one of the installed trees stays, moved
# to INSTALLED.
file(READ ${SOURCE}/README.md readme)
if(NOT readme MATCHES "```sh\n(cmake -S \\. -B build [^`]*)```")
  message(FATAL_ERROR "The README does not say how the library is built.")
endif()
set(command ${CMAKE_MATCH_1})

# The second is not below its sources, and neither path is as long as the other.
set(sources ${WORK}/a/source ${WORK}/another-and-longer-folder/sources)
set(builds build ../build-beside-them)
# A compiler cache would hand the first one's files to the second.
set(ENV{CCACHE_DISABLE} 1)
file(REMOVE_RECURSE ${WORK} ${INSTALLED})
foreach(index 0 1)
  list(GET sources ${index} source)
  list(GET builds ${index} build)
  file(COPY ${SOURCE}/CMakeLists.txt ${SOURCE}/cmake ${SOURCE}/include ${SOURCE}/src
    ${SOURCE}/Resources ${SOURCE}/translations ${SOURCE}/docs ${SOURCE}/README.md ${SOURCE}/CHANGELOG.md ${SOURCE}/LICENSE
    DESTINATION ${source})
  file(COPY ${SOURCE}/examples/notes ${SOURCE}/examples/from-qmainwindow DESTINATION ${source}/examples)
  string(REPLACE "DIR" "${WORK}/installed-${index}" here "${command}")
  string(REPLACE " build " " ${build} " here "${here}")
  # What the README does not name is not there.
  string(REPLACE "-B " "-DCMAKE_DISABLE_FIND_PACKAGE_Qt5Test=ON -DCMAKE_DISABLE_FIND_PACKAGE_X11=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_Python3=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt5Designer=ON -DKEST_QT_MAJOR=${QT_MAJOR} -B " here "${here}")
  execute_process(COMMAND sh -e -c "${here}" WORKING_DIRECTORY ${source}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Failed: ${here}\n${output}")
  endif()
endforeach()

file(GLOB_RECURSE files RELATIVE ${WORK}/installed-0 ${WORK}/installed-0/*)
file(GLOB_RECURSE others RELATIVE ${WORK}/installed-1 ${WORK}/installed-1/*)
if(NOT files STREQUAL others)
  message(FATAL_ERROR "Installed are ${files} and ${others}.")
endif()
if(NOT files MATCHES "KestWidgets(Qt6)?\\.(so|dll)")
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
file(RENAME ${WORK}/installed-0 ${INSTALLED})
file(REMOVE_RECURSE ${WORK})
