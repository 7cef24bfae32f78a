# SPDX-License-Identifier: MIT
# One interface target with the warnings, hardening and sanitizers that every target of ours is built
# with.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

add_library(kest_options INTERFACE)
set(optimised $<OR:$<CONFIG:Release>,$<CONFIG:RelWithDebInfo>,$<CONFIG:MinSizeRel>>)

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

# What makes a mistake in memory hard to exploit.
if(MSVC)
  # Buffer checks (/GS), execution prevention and random addresses are on by themselves.
  target_compile_options(kest_options INTERFACE /sdl /guard:cf)
  target_link_options(kest_options INTERFACE
    LINKER:/GUARD:CF LINKER:/NXCOMPAT LINKER:/DYNAMICBASE LINKER:/HIGHENTROPYVA)
elseif(WIN32)
  # Without the checks of stacks and buffers: MinGW's are in a library that hosts had to deliver.
  target_link_options(kest_options INTERFACE
    LINKER:--nxcompat LINKER:--dynamicbase LINKER:--high-entropy-va)
elseif(NOT APPLE)
  foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER KEST_HAVE${flag} have)
    check_cxx_compiler_flag(${flag} ${have})
    if(${have})
      target_compile_options(kest_options INTERFACE ${flag})
    endif()
  endforeach()
  target_link_options(kest_options INTERFACE LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
  # The linker claims shadow stacks only where the system's start-up code does so too, which some
  # systems forgot; that code needs no more for it than to return where it was called from.
  if(KEST_HAVE_fcf_protection)
    set(CMAKE_REQUIRED_LINK_OPTIONS -Wl,-z,shstk)
    check_cxx_compiler_flag(-Wall KEST_HAVE_z_shstk)
    unset(CMAKE_REQUIRED_LINK_OPTIONS)
    if(KEST_HAVE_z_shstk)
      target_link_options(kest_options INTERFACE LINKER:-z,shstk)
    endif()
  endif()
  # Checks of buffers need an optimising compiler, and hide from the sanitizer what it looks for.
  if(NOT KEST_SANITIZE)
    set(CMAKE_REQUIRED_FLAGS "-O2 -Werror -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3")
    check_cxx_source_compiles("#include <string>\nint main() { return 0; }" KEST_HAVE_fortify_3)
    unset(CMAKE_REQUIRED_FLAGS)
    set(level $<IF:$<BOOL:${KEST_HAVE_fortify_3}>,3,2>)
    target_compile_options(kest_options INTERFACE
      $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=${level}>)
  endif()
endif()

# What is built does not depend on the folders that it is built in: log messages and debug
# information name files relative to the sources. A debugger that is started elsewhere would not find
# them, so debug builds keep the whole names.
if(NOT MSVC)
  check_cxx_compiler_flag(-ffile-prefix-map=/a=/b KEST_HAVE_ffile_prefix_map)
  if(KEST_HAVE_ffile_prefix_map)
    # The last one that fits counts: build folders are usually below that of the sources.
    target_compile_options(kest_options INTERFACE
      $<${optimised}:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>
      $<${optimised}:-ffile-prefix-map=${PROJECT_BINARY_DIR}/=build/>)
    # A compiler cache has the sources called relative to the folder that Ninja works in.
    file(RELATIVE_PATH relative ${CMAKE_BINARY_DIR} ${PROJECT_SOURCE_DIR})
    if(relative)
      target_compile_options(kest_options INTERFACE
        $<${optimised}:-ffile-prefix-map=${relative}/=>)
    endif()
  endif()
endif()
if(MINGW)
  target_link_options(kest_options INTERFACE LINKER:--no-insert-timestamp)
endif()

# What nobody can reach is left out of the library, with the symbols that it needs.
if(NOT MSVC)
  target_compile_options(kest_options INTERFACE -ffunction-sections -fdata-sections)
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
