# SPDX-License-Identifier: MIT
# Checks that the shared library exports something of each public class, which is each class that
# has a header in INCLUDE, and nothing of the library's internal ones. LIBRARY is the library; NM or
# OBJDUMP lists what it exports, and CXXFILT says what the names mean.
if(OBJDUMP)
  execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} COMMAND_ERROR_IS_FATAL ANY
    OUTPUT_VARIABLE listing)
  # Of the tables, the one of names: an ordinal in brackets before each.
  string(REGEX MATCHALL "\\[ *[0-9]+\\] _Z[A-Za-z0-9_]+" names "${listing}")
  list(TRANSFORM names REPLACE "^\\[ *[0-9]+\\] " "")
else()
  execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY} COMMAND_ERROR_IS_FATAL ANY
    OUTPUT_VARIABLE listing)
  string(REGEX MATCHALL "_Z[A-Za-z0-9_]+" names "${listing}")
endif()
list(LENGTH names count)
if(count EQUAL 0)
  message(FATAL_ERROR "The library exports nothing.")
endif()
string(REPLACE ";" "\n" names "${names}")
file(WRITE ${WORK} "${names}\n")
execute_process(COMMAND ${CXXFILT} INPUT_FILE ${WORK} OUTPUT_VARIABLE symbols
  COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," symbols "${symbols}")
string(REPLACE "\n" ";" symbols "${symbols}")

file(GLOB headers ${INCLUDE}/Kest*.h)
set(classes)
foreach(header ${headers})
  get_filename_component(name ${header} NAME_WE)
  list(APPEND classes ${name})
endforeach()
list(REMOVE_ITEM classes KestGlobal)

foreach(class ${classes})
  if(NOT symbols MATCHES "(^|[ ;])${class}::")
    message(SEND_ERROR "Nothing of ${class} is exported.")
  endif()
endforeach()

list(JOIN classes "|" public)
set(allowed "^((virtual |non-virtual )?thunk to |vtable for |typeinfo (name )?for |guard variable for )?(${public})(::.*)?$")
foreach(symbol ${symbols})
  if(symbol MATCHES "${allowed}"
      OR symbol MATCHES "^(isLight|createFormatRange|moveFormatRange)\\(")
    continue()
  endif()
  # What the compiler makes of other libraries' inline code and exports is not ours.
  if(NOT OBJDUMP AND NOT symbol MATCHES "Kest|WindowsEventFilter")
    continue()
  endif()
  message(SEND_ERROR "Exported, but of no public class: ${symbol}")
endforeach()
