# SPDX-License-Identifier: MIT
# Installs the component Designer of BUILD with the library into WORK, moves both, and checks that the
# plugin is all there is of the component, below PLUGINS, and finds the library that was moved along.
file(REMOVE_RECURSE ${WORK})
set(listed)
foreach(component Runtime Designer)
  execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/at-first
    --component ${component} OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
endforeach()
string(REGEX MATCHALL "-- (Installing|Up-to-date): [^\n]*" listed "${listed}")
if(NOT listed MATCHES "^[^;]*/${PLUGINS}/designer/libkestwidgets\\.so$")
  message(FATAL_ERROR "The component Designer is ${listed}.")
endif()
file(RENAME ${WORK}/at-first ${WORK}/moved)

set(ENV{LD_LIBRARY_PATH})
execute_process(COMMAND ldd ${WORK}/moved/${PLUGINS}/designer/libkestwidgets.so
  OUTPUT_VARIABLE libraries COMMAND_ERROR_IS_FATAL ANY)
if(NOT libraries MATCHES "libKestWidgets[^\n]* => ([^\n]*) \\(")
  message(FATAL_ERROR "The plugin does not find the library:\n${libraries}")
endif()
get_filename_component(found ${CMAKE_MATCH_1} REALPATH)
if(NOT found MATCHES "^${WORK}/moved/")
  message(FATAL_ERROR "The plugin finds ${found}.")
endif()
