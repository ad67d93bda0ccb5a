# As x64-windows, with pugixml on wide characters, which its users here are built for.
set(VCPKG_TARGET_ARCHITECTURE x64)
set(VCPKG_CRT_LINKAGE dynamic)
set(VCPKG_LIBRARY_LINKAGE static)
set(VCPKG_C_FLAGS "")
set(VCPKG_CXX_FLAGS "")
if(PORT STREQUAL "pugixml")
  set(VCPKG_CXX_FLAGS "/DPUGIXML_WCHAR_MODE")
endif()
