# Read by cpack before each package: which parts it holds. Those for Windows hold all.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_COMPONENTS_ALL program debian)
elseif(CPACK_GENERATOR STREQUAL "TGZ")
  set(CPACK_COMPONENTS_ALL program licence bundle)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
elseif(CPACK_GENERATOR STREQUAL "NSIS64")
  string(APPEND CPACK_PACKAGE_FILE_NAME "-setup")
endif()
