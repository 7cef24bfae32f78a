# SPDX-License-Identifier: MIT
# For hosts' translations as well: this file is installed with the package.
# KestWidgets_TRANSLATIONS is the folder of the library's own, KestWidgets_QT the Qt that it is built with.

# Looks for Qt's tools and sets KEST_LRELEASE and KEST_LUPDATE. Debian's /usr/bin, where Qt 6's qmake is,
# has their names also where they are another Qt's, or not installed.
function(kest_find_linguist_tools)
  get_target_property(qmake ${KestWidgets_QT}::qmake LOCATION)
  get_filename_component(folder ${qmake} DIRECTORY)
  string(TOLOWER /usr/lib/${KestWidgets_QT}/bin debian)
  if(folder STREQUAL /usr/bin)
    set(folder ${debian})
  endif()
  foreach(tool lrelease lupdate)
    string(TOUPPER KEST_${tool} variable)
    find_program(${variable} NAMES ${tool} HINTS ${folder} ${debian})
    mark_as_advanced(${variable})
    if(${variable})
      execute_process(COMMAND ${${variable}} -version
        RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
      if(NOT result EQUAL 0)
        set(${variable} ${variable}-NOTFOUND CACHE FILEPATH "Qt's ${tool}" FORCE)
      endif()
    endif()
  endforeach()
endfunction()

# kest_add_translations(TARGET [NAME name] [file...])
#
# Gives the program TARGET the catalogues that KestApplication::loadTranslator() looks for: of each file,
# which is called NAME_LANGUAGE.ts, together with the library's texts in that language; without files
# the library's alone, in all of its languages. NAME is what QCoreApplication::applicationName() will
# be, that of TARGET by default.
function(kest_add_translations target)
  cmake_parse_arguments(ARG "" "NAME" "" ${ARGN})
  if(NOT ARG_NAME)
    set(ARG_NAME ${target})
  endif()
  kest_find_linguist_tools()
  if(NOT KEST_LRELEASE)
    message(FATAL_ERROR "kest_add_translations() needs Qt's lrelease, in KEST_LRELEASE.")
  endif()

  # Sources where the library is a part of the host's project, and compiled ones where it is installed.
  set(languages)
  file(GLOB catalogues ${KestWidgets_TRANSLATIONS}/kestwidgets_*)
  foreach(catalogue ${catalogues})
    string(REGEX REPLACE ".*/kestwidgets_(.*)\\.(ts|qm)$" "\\1" language ${catalogue})
    set(library_${language} ${catalogue})
    list(APPEND languages ${language})
  endforeach()
  if(ARG_UNPARSED_ARGUMENTS)
    set(languages)
  endif()
  foreach(file ${ARG_UNPARSED_ARGUMENTS})
    get_filename_component(name ${file} NAME)
    string(FIND ${name} "${ARG_NAME}_" begin)
    if(NOT begin EQUAL 0 OR NOT name MATCHES "_([A-Za-z_]+)\\.ts$")
      message(FATAL_ERROR "kest_add_translations(): ${file} is not called ${ARG_NAME}_LANGUAGE.ts.")
    endif()
    string(LENGTH "${ARG_NAME}_" begin)
    string(SUBSTRING ${name} ${begin} -1 language)
    string(REPLACE ".ts" "" language ${language})
    get_filename_component(host_${language} ${file} ABSOLUTE)
    list(APPEND languages ${language})
  endforeach()
  if(NOT languages)
    message(FATAL_ERROR "kest_add_translations(): in '${KestWidgets_TRANSLATIONS}' is no translation.")
  endif()

  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_translations)
  set(compiled)
  set(entries)
  foreach(language ${languages})
    # A country without a catalogue of its own has its language's.
    set(general ${language})
    while(NOT library_${general} AND general MATCHES "_")
      string(REGEX REPLACE "_[^_]*$" "" general ${general})
    endwhile()
    set(sources ${host_${language}} ${library_${general}})
    set(catalogue ${ARG_NAME}_${language}.qm)
    add_custom_command(OUTPUT ${folder}/${catalogue}
      COMMAND ${KEST_LRELEASE} -silent ${sources} -qm ${folder}/${catalogue}
      DEPENDS ${sources} VERBATIM)
    list(APPEND compiled ${folder}/${catalogue})
    string(APPEND entries "<file>${catalogue}</file>")
  endforeach()
  file(GENERATE OUTPUT ${folder}/translations.qrc
    CONTENT "<RCC><qresource prefix=\"/i18n\">${entries}</qresource></RCC>\n")
  add_custom_command(OUTPUT ${folder}/translations.cpp
    COMMAND ${KestWidgets_QT}::rcc --name ${target}_translations -o ${folder}/translations.cpp
      ${folder}/translations.qrc
    DEPENDS ${folder}/translations.qrc ${compiled} VERBATIM)
  set_source_files_properties(${folder}/translations.cpp PROPERTIES SKIP_AUTOGEN ON)
  target_sources(${target} PRIVATE ${folder}/translations.cpp)
endfunction()
