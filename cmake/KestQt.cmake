# SPDX-License-Identifier: MIT
# Finds the Qt that everything is built with. Besides its targets, Qt${KEST_QT_MAJOR}::Core and so on,
# KEST_QT_VERSION is then the least that is needed of it, KEST_QT_HOSTS_ARE_PIC whether it has hosts
# compiled with -fPIC, and KEST_LIBRARY what the library is called where it is installed: one for each
# major version of Qt may lie in the same folder.
set(components Core Gui Widgets Network)

if(NOT KEST_QT_MAJOR)
  set(found 5)
  if(TARGET Qt6::Core AND NOT TARGET Qt5::Core)
    set(found 6) # as the host that this is a part of
  elseif(NOT TARGET Qt5::Core)
    find_package(Qt5 5.15 QUIET COMPONENTS ${components})
    if(NOT Qt5_FOUND)
      find_package(Qt6 6.4 QUIET COMPONENTS ${components})
      if(Qt6_FOUND)
        set(found 6)
      endif()
    endif()
  endif()
  set(KEST_QT_MAJOR ${found} CACHE STRING "Qt's major version, 5 or 6" FORCE)
endif()

if(KEST_QT_MAJOR STREQUAL 5)
  set(KEST_QT_VERSION 5.15)
  set(KEST_LIBRARY KestWidgets)
elseif(KEST_QT_MAJOR STREQUAL 6)
  set(KEST_QT_VERSION 6.4)
  set(KEST_LIBRARY KestWidgetsQt6)
else()
  message(FATAL_ERROR "KEST_QT_MAJOR is 5 or 6, and not ${KEST_QT_MAJOR}.")
endif()
find_package(Qt${KEST_QT_MAJOR} ${KEST_QT_VERSION} REQUIRED COMPONENTS ${components})

set(KEST_QT_HOSTS_ARE_PIC ${Qt5_POSITION_INDEPENDENT_CODE})
if(KEST_QT_MAJOR EQUAL 6)
  get_target_property(options Qt6::Core INTERFACE_COMPILE_OPTIONS)
  if("-fPIC" IN_LIST options)
    set(KEST_QT_HOSTS_ARE_PIC ON)
  endif()
endif()
