# What a program for Windows carries beside its code: the manifest (true version of the system, sharp on every
# display, common controls, long paths), its version, and its icon if it has one.

# quorvane_windows_resources(TARGET DESCRIPTION [ICON]); nothing on other systems.
function(quorvane_windows_resources program description)
  if(NOT WIN32)
    return()
  endif()
  set(sources "${PROJECT_SOURCE_DIR}/platform/windows/resources")
  set(folder "${CMAKE_BINARY_DIR}/generated/resources")
  set(manifest "${folder}/${program}.manifest")
  set(icon_line "")
  if(ARGC GREATER 2)
    set(icon_line "1 ICON \"${ARGV2}\"")
  endif()
  configure_file("${sources}/Program.manifest.in" "${manifest}" @ONLY)
  configure_file("${sources}/Program.rc.in" "${folder}/${program}.rc" @ONLY)
  # An object library of its own: the programs' warning options are not the resource compiler's.
  add_library(${program}-resources OBJECT "${folder}/${program}.rc")
  set_property(SOURCE "${folder}/${program}.rc" PROPERTY OBJECT_DEPENDS "${manifest}")
  target_sources(${program} PRIVATE $<TARGET_OBJECTS:${program}-resources>)
endfunction()
