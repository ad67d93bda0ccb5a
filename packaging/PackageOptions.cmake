# Read by CPack for each kind of package.
if(CPACK_GENERATOR STREQUAL "NSIS")
  set(CPACK_COMPONENTS_ALL program)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
endif()
