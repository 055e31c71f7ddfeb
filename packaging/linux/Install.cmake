include(GNUInstallDirs)
set(QUORVANE_LIBRARY_FOLDER lib/quorvane) # the same on all systems: the programs look for it
set(QUORVANE_PLUGIN_FOLDER "${QUORVANE_LIBRARY_FOLDER}/plugins")
set(QUORVANE_TRANSLATION_FOLDER "${QUORVANE_LIBRARY_FOLDER}/translations")

# ---- programs

set_target_properties(${quorvanePrograms} PROPERTIES INSTALL_RPATH "\$ORIGIN/../lib/quorvane")
install(TARGETS ${quorvanePrograms} RUNTIME_DEPENDENCY_SET bundled
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT program)

# ---- what a desktop shows

if(TARGET quorvane)
  # The libraries in that folder have to find one another there as well, which only this older kind of entry allows.
  target_link_options(quorvane PRIVATE -Wl,--disable-new-dtags)
  install(FILES linux/${QUORVANE_ID}.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT program)
  install(FILES linux/${QUORVANE_ID}.metainfo.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT program)
  foreach(size 16 32 48 256)
    install(FILES "${PROJECT_SOURCE_DIR}/resources/pictures/quorvane-${size}.png"
      DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps"
      RENAME ${QUORVANE_ID}.png COMPONENT program)
  endforeach()
endif()

# ---- documents

string(TIMESTAMP QUORVANE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC) # SOURCE_DATE_EPOCH, when that is set
set(QUORVANE_DOC_FOLDER "${CMAKE_INSTALL_FULL_DOCDIR}")
find_program(QUORVANE_GZIP gzip REQUIRED)

# Fills in and compresses `from`, and installs it as `to`; the rest goes to install().
function(install_compressed from to)
  get_filename_component(name "${to}" NAME)
  get_filename_component(folder "${to}" DIRECTORY)
  set(made "${CMAKE_CURRENT_BINARY_DIR}/${to}")
  configure_file("${from}" "${made}" @ONLY)
  add_custom_command(OUTPUT "${made}.gz" COMMAND "${QUORVANE_GZIP}" -9nkf "${made}" DEPENDS "${made}" VERBATIM)
  string(MAKE_C_IDENTIFIER "packed_${to}" target)
  add_custom_target(${target} ALL DEPENDS "${made}.gz")
  install(FILES "${made}.gz" DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/${folder}" ${ARGN})
endfunction()

foreach(program IN LISTS quorvanePrograms)
  install_compressed(man/${program}.1.in man/man1/${program}.1 COMPONENT program)
  if(QUORVANE_TESTS)
    add_test(NAME man.${program} COMMAND "${PROJECT_SOURCE_DIR}/scripts/man-check" "$<TARGET_FILE:${program}>"
      "${CMAKE_CURRENT_SOURCE_DIR}/man/${program}.1.in")
  endif()
endforeach()
if(TARGET quorvane)
  install_compressed(man/ja/quorvane.1.in man/ja/man1/quorvane.1 COMPONENT program)
endif()
install(FILES "${PROJECT_SOURCE_DIR}/README.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT program)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT program)
install_compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" doc/quorvane/changelog COMPONENT program)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT licence)
install_compressed(linux/changelog.Debian.in doc/quorvane/changelog.Debian COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES linux/copyright linux/README.Debian DESTINATION "${CMAKE_INSTALL_DOCDIR}"
  COMPONENT debian EXCLUDE_FROM_ALL)

# ---- libraries of the portable package

if(TARGET quorvane)
  install(FILES linux/qt.conf DESTINATION "${CMAKE_INSTALL_BINDIR}" ${QUORVANE_BUNDLE})
  quorvane_bundle_translation()
  quorvane_bundle_plugin(platforms/qxcb)
  quorvane_bundle_plugin(platforminputcontexts/composeplatforminputcontextplugin)
  quorvane_bundle_plugin(platforminputcontexts/ibusplatforminputcontextplugin)
  quorvane_bundle_plugin(printsupport/cupsprintersupport)
  # Left to the system: the C and C++ libraries, the graphics driver, X11, fonts, and what talks to a service that runs.
  set(ofTheSystem c m dl rt pthread resolv "stdc\\+\\+" gcc_s GL GLX EGL OpenGL GLdispatch drm gbm X11 X11-xcb xcb
    fontconfig freetype expat z glib-2.0 gio-2.0 gobject-2.0 gmodule-2.0 gthread-2.0 dbus-1 systemd udev cups)
  list(JOIN ofTheSystem "|" names)
  install(RUNTIME_DEPENDENCY_SET bundled PRE_EXCLUDE_REGEXES "^lib(${names})\\.so" "^ld-linux"
    LIBRARY DESTINATION "${QUORVANE_LIBRARY_FOLDER}" ${QUORVANE_BUNDLE})
  install(SCRIPT linux/Licences.cmake ${QUORVANE_BUNDLE})
endif()

# ---- packages

set(CPACK_GENERATOR DEB TGZ)
string(TOLOWER "${CMAKE_SYSTEM_NAME}" system)
set(CPACK_PACKAGE_FILE_NAME "quorvane-${PROJECT_VERSION}-${system}-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, fonts-noto-cjk | fonts-ipafont-gothic | fonts-vlgothic")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "measures dust concentrations with an instrument on a serial line")
set(CPACK_PACKAGE_DESCRIPTION
"Runs a portable dust-concentration instrument over an RS-232C line: reads
counts per minute and mg/m3, follows the exposure values TWA, STEL and ceiling,
raises alarms, draws a live chart, and saves the series as CSV. In English and
Japanese.
.
The command line measures without a window; a simulated instrument on a
virtual serial line is there to practise with.
.
Serial ports belong to the group dialout: whoever measures has to be in it.")
