# SPDX-License-Identifier: MIT
# Reads from the built LIBRARY how it is hardened, by READELF and OBJDUMP, and from PROBE, an object
# file, what cannot be told from the library: how strict the checks are. FORTIFY is the level of
# the buffers' checks, 0 for none, CET whether the compiler guards jumps. DLL for a Windows library,
# of which OBJDUMP alone reads.
function(output_of result)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

function(expect text pattern what)
  if(NOT text MATCHES "${pattern}")
    message(SEND_ERROR "${what}: nothing like ${pattern}")
  endif()
endfunction()

if(DLL)
  output_of(headers ${OBJDUMP} -p ${LIBRARY})
  if(NOT headers MATCHES "DllCharacteristics[ \t]+([0-9a-f]+)")
    message(FATAL_ERROR "The library has no characteristics.")
  endif()
  math(EXPR found "0x${CMAKE_MATCH_1}")
  foreach(bit "0x20;addresses of 64 random bits" "0x40;random addresses"
      "0x100;no execution of data")
    list(GET bit 0 value)
    math(EXPR set "${found} & ${value}")
    if(NOT set)
      list(GET bit 1 what)
      message(SEND_ERROR "Not marked for ${what}.")
    endif()
  endforeach()
  return()
endif()

output_of(dynamic ${READELF} -dW ${LIBRARY})
expect("${dynamic}" "\\(FLAGS\\)[^\n]*BIND_NOW" "Symbols are bound at once")
expect("${dynamic}" "\\(FLAGS_1\\)[^\n]*NOW" "Symbols are bound at once")
if(dynamic MATCHES "TEXTREL")
  message(SEND_ERROR "Code is changed when the library is loaded.")
endif()
if(dynamic MATCHES "SYMBOLIC")
  message(SEND_ERROR "Each of Qt's symbols is looked for in this library first.")
endif()

output_of(segments ${READELF} -lW ${LIBRARY})
expect("${segments}" "GNU_RELRO" "Tables are read-only once they are filled")
expect("${segments}" "GNU_STACK[^\n]* RW " "The stack is no code")
if(segments MATCHES "RWE")
  message(SEND_ERROR "Something can be written and run.")
endif()
# With it in the read-only part, no entry of the tables of addresses can be written.
output_of(sections ${READELF} -SW ${LIBRARY})
if(sections MATCHES "\\.got\\.plt")
  message(SEND_ERROR "The table of functions' addresses stays writable.")
endif()

output_of(symbols ${READELF} -W --dyn-syms ${LIBRARY})
expect("${symbols}" "UND __stack_chk_fail" "The library guards its stacks")

output_of(code ${OBJDUMP} -dr --no-show-raw-insn ${PROBE})
expect("${code}" "<guardedStack>:.*__stack_chk_fail.*<largeFrame>:" "Stacks with any array are guarded")
expect("${code}" "<largeFrame>:.*or[a-z]? +\\$0x0,.*<checkedCopy>:" "Large frames are touched by pages")
if(FORTIFY)
  set(copy __memcpy_chk)
  if(FORTIFY LESS 3)
    # Below level 3 sizes that are known at run time only are not checked.
    set(copy memcpy)
  endif()
  expect("${code}" "<checkedCopy>:.*${copy}" "Copies into buffers are checked")
endif()

if(CET)
  output_of(notes ${READELF} -nW ${LIBRARY})
  expect("${notes}" "x86 feature:[^\n]*SHSTK" "Shadow stacks are marked")
  output_of(notes ${READELF} -nW ${PROBE})
  expect("${notes}" "x86 feature:[^\n]*IBT" "Jumps are guarded")
  # The whole library carries the mark only where the system's start-up code does, so its own
  # functions are looked at: hosts may call each of them by its address.
  output_of(code ${OBJDUMP} -d --no-show-raw-insn ${LIBRARY})
  string(REGEX MATCHALL "<_ZN[0-9]*Kest[^>@]*C1E[^>@]*>:\n[^\n]*" starts "${code}")
  list(LENGTH starts count)
  if(count LESS 10)
    message(SEND_ERROR "The library has ${count} constructors.")
  endif()
  foreach(start ${starts})
    expect("${start}" "endbr" "Functions can be jumped to")
  endforeach()
endif()
