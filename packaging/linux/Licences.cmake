# Part of the install script: lays the licences of the bundled libraries beside them, as Debian's packages hold them.
find_program(DPKG_QUERY dpkg-query)
file(GLOB libraries "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/lib/quorvane/*.so*") # the plugins come from the same packages
foreach(library IN LISTS libraries)
  get_filename_component(name "${library}" NAME)
  execute_process(COMMAND "${DPKG_QUERY}" --search "*/${name}" OUTPUT_VARIABLE found ERROR_QUIET)
  string(REGEX MATCH "^[^:]+" package "${found}")
  if(NOT EXISTS "/usr/share/doc/${package}/copyright")
    message(WARNING "No licence is known for ${name}")
  elseif(NOT EXISTS "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/lib/quorvane/licences/${package}")
    file(INSTALL DESTINATION "${CMAKE_INSTALL_PREFIX}/lib/quorvane/licences" TYPE FILE RENAME "${package}"
      FILES "/usr/share/doc/${package}/copyright")
  endif()
endforeach()
