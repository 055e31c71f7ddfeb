# Run by cpack on what it is going to pack: the compiler's libraries come with 20 MB of names for a debugger.
file(GLOB_RECURSE libraries "${CPACK_TEMPORARY_DIRECTORY}/*.dll")
foreach(library IN LISTS libraries)
  execute_process(COMMAND "${CPACK_QUORVANE_STRIP}" --strip-unneeded "${library}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
