# SPDX-License-Identifier: MIT
# What is installed: the library, what hosts build against, and the documentation. Each part finds the
# others relative to itself, so that the whole may be moved.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(headers ${CMAKE_INSTALL_INCLUDEDIR}/${KEST_LIBRARY})
install(TARGETS KestWidgets EXPORT ${KEST_LIBRARY}Targets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
  INCLUDES DESTINATION ${headers})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ ${KEST_GENERATED_HEADERS}/
  DESTINATION ${headers} COMPONENT Development)

# For CMake.
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/${KEST_LIBRARY})
install(EXPORT ${KEST_LIBRARY}Targets NAMESPACE ${KEST_LIBRARY}:: DESTINATION ${package}
  COMPONENT Development)
set(KEST_INSTALL_TRANSLATIONS ${CMAKE_INSTALL_DATAROOTDIR}/${KEST_LIBRARY}/translations)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/KestWidgetsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/${KEST_LIBRARY}Config.cmake INSTALL_DESTINATION ${package}
  PATH_VARS KEST_INSTALL_TRANSLATIONS)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/${KEST_LIBRARY}ConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/${KEST_LIBRARY}Config.cmake
  ${PROJECT_BINARY_DIR}/${KEST_LIBRARY}ConfigVersion.cmake
  ${PROJECT_SOURCE_DIR}/cmake/KestTranslations.cmake
  DESTINATION ${package} COMPONENT Development)

# For pkg-config and qmake, which are told here what CMake knows of the target.
file(RELATIVE_PATH KEST_LIBDIR_TO_HEADERS
  ${CMAKE_INSTALL_FULL_LIBDIR} ${CMAKE_INSTALL_FULL_INCLUDEDIR}/${KEST_LIBRARY})
file(RELATIVE_PATH KEST_LIBDIR_TO_TRANSLATIONS
  ${CMAKE_INSTALL_FULL_LIBDIR} ${CMAKE_INSTALL_FULL_DATAROOTDIR}/${KEST_LIBRARY}/translations)
set(KEST_PC_REQUIRES "Qt${KEST_QT_MAJOR}Widgets >= ${KEST_QT_VERSION}")
set(KEST_PC_CFLAGS "-I\${includedir}")
if(KEST_QT_HOSTS_ARE_PIC AND NOT WIN32)
  string(APPEND KEST_PC_CFLAGS " -fPIC")
endif()
set(KEST_PC_LIBS "-L\${libdir} -l$<TARGET_FILE_BASE_NAME:KestWidgets>")
get_target_property(KEST_DEBUG_POSTFIX KestWidgets DEBUG_POSTFIX)
set(KEST_QMAKE_STATIC)
if(NOT BUILD_SHARED_LIBS)
  list(TRANSFORM KEST_SYSTEM_LIBRARIES PREPEND -l)
  list(JOIN KEST_SYSTEM_LIBRARIES " " system)
  string(APPEND KEST_PC_REQUIRES ", Qt${KEST_QT_MAJOR}Network >= ${KEST_QT_VERSION}")
  string(APPEND KEST_PC_CFLAGS " -DKEST_STATIC")
  string(APPEND KEST_PC_LIBS " ${KEST_RESOURCES_OPTION} ${system}")
  set(KEST_QMAKE_STATIC "QT += network
DEFINES += KEST_STATIC
QMAKE_LFLAGS += ${KEST_RESOURCES_OPTION}
LIBS += ${system}
")
endif()
# A debug build's file is called as its library is.
set(name $<TARGET_FILE_BASE_NAME:KestWidgets>)
configure_file(${PROJECT_SOURCE_DIR}/cmake/KestWidgets.pc.in ${PROJECT_BINARY_DIR}/KestWidgets.pc.in
  @ONLY)
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc
  INPUT ${PROJECT_BINARY_DIR}/KestWidgets.pc.in)
install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/${name}.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
configure_file(${PROJECT_SOURCE_DIR}/cmake/KestWidgets.pri.in ${PROJECT_BINARY_DIR}/${KEST_LIBRARY}.pri
  @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/${KEST_LIBRARY}.pri
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/qmake COMPONENT Development)

# As they lie in the source folder, for the links among them.
set(documentation ${CMAKE_INSTALL_DATAROOTDIR}/doc/${KEST_LIBRARY})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${documentation} COMPONENT Runtime)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${documentation} COMPONENT Documentation)
file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
install(FILES ${pages} DESTINATION ${documentation}/docs COMPONENT Documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/images DESTINATION ${documentation}/docs
  COMPONENT Documentation)
# Those that build with an installed library.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/notes ${PROJECT_SOURCE_DIR}/examples/from-qmainwindow
  DESTINATION ${documentation}/examples COMPONENT Documentation)
# The reference, where scripts/docs has made it before. Assistant and Creator open the .qch file.
install(FILES ${PROJECT_SOURCE_DIR}/build/docs/KestWidgets.qch DESTINATION ${documentation}
  COMPONENT Documentation OPTIONAL)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/build/docs/html DESTINATION ${documentation}
  COMPONENT Documentation OPTIONAL)
