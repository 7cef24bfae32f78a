# SPDX-License-Identifier: MIT
# Makes in the folder KEST_GENERATED_HEADERS the header with the version, for each public header one
# that is called as its class, and KestWidgets, which includes them all.
set(KEST_GENERATED_HEADERS ${PROJECT_BINARY_DIR}/include)
configure_file(${CMAKE_CURRENT_LIST_DIR}/KestVersion.h.in
  ${KEST_GENERATED_HEADERS}/KestVersion.h @ONLY)

file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/*.h)
set(all)
foreach(header ${headers} KestVersion.h)
  get_filename_component(name ${header} NAME_WE)
  set(include "#include \"${name}.h\"\n")
  string(APPEND all ${include})
  file(GENERATE OUTPUT ${KEST_GENERATED_HEADERS}/${name} CONTENT "${include}")
endforeach()
file(GENERATE OUTPUT ${KEST_GENERATED_HEADERS}/KestWidgets CONTENT "${all}")
