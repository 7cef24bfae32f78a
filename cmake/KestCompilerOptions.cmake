# SPDX-License-Identifier: MIT
# One interface target with the warnings and sanitizers that every target of ours is built with.

add_library(kest_options INTERFACE)

target_compile_definitions(kest_options INTERFACE
  QT_NO_KEYWORDS
  QT_NO_CAST_TO_ASCII
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DEPRECATED_WARNINGS
  QT_DISABLE_DEPRECATED_BEFORE=0x050000
  QT_MESSAGELOGCONTEXT)

if(MSVC)
  target_compile_options(kest_options INTERFACE /W4 /utf-8 /permissive-)
  if(KEST_WARNINGS_AS_ERRORS)
    target_compile_options(kest_options INTERFACE /WX)
  endif()
else()
  target_compile_options(kest_options INTERFACE -Wall -Wextra -Wpedantic)
  if(KEST_WARNINGS_AS_ERRORS)
    target_compile_options(kest_options INTERFACE -Werror)
  endif()
endif()

if(KEST_SANITIZE)
  set(KEST_SANITIZERS address,undefined)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # What only Clang has: values that do not fit into what they are converted to.
    string(APPEND KEST_SANITIZERS ,float-cast-overflow,implicit-conversion)
    target_compile_options(kest_options INTERFACE
      -fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/KestSanitizerIgnores.txt)
  endif()
  target_compile_options(kest_options INTERFACE
    -fsanitize=${KEST_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kest_options INTERFACE -fsanitize=${KEST_SANITIZERS})
endif()

if(KEST_BUILD_FUZZERS)
  # Assertions of Qt's headers count as findings.
  target_compile_options(kest_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fno-sanitize-recover=all
    -fno-omit-frame-pointer -UNDEBUG -UQT_NO_DEBUG)
  target_link_options(kest_options INTERFACE -fsanitize=address,undefined,float-cast-overflow)
endif()
