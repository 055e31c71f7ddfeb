# Qt and what it needs, for packages that stand alone: part "bundle". The folders they go to are in
# QUORVANE_LIBRARY_FOLDER, QUORVANE_PLUGIN_FOLDER and QUORVANE_TRANSLATION_FOLDER.

set(QUORVANE_BUNDLE COMPONENT bundle)
if(NOT WIN32)
  list(APPEND QUORVANE_BUNDLE EXCLUDE_FROM_ALL) # a plain install takes the system's
endif()

# One plugin, "kind/name". The libraries that it needs are found with the programs'.
function(quorvane_bundle_plugin plugin)
  get_filename_component(kind "${plugin}" DIRECTORY)
  get_filename_component(name "${plugin}" NAME)
  set(file "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS}/${kind}/${name}.dll")
  if(NOT WIN32)
    set(file "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS}/${kind}/lib${name}.so")
  endif()
  if(NOT EXISTS "${file}")
    message(STATUS "Packages go without Qt's plugin ${plugin}: there is no ${file}")
    return()
  endif()
  add_library(bundled_${name} MODULE IMPORTED)
  set_target_properties(bundled_${name} PROPERTIES IMPORTED_LOCATION "${file}")
  install(IMPORTED_RUNTIME_ARTIFACTS bundled_${name} RUNTIME_DEPENDENCY_SET bundled
    LIBRARY DESTINATION "${QUORVANE_PLUGIN_FOLDER}/${kind}" ${QUORVANE_BUNDLE})
endfunction()

# Qt's own texts in Japanese, which do not depend on the system.
function(quorvane_bundle_translation)
  find_file(QUORVANE_QT_JAPANESE qtbase_ja.qm NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH PATHS
    "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_TRANSLATIONS}" "${QT_HOST_PATH}/share/qt6/translations")
  if(QUORVANE_QT_JAPANESE)
    install(FILES "${QUORVANE_QT_JAPANESE}" DESTINATION "${QUORVANE_TRANSLATION_FOLDER}" ${QUORVANE_BUNDLE})
  else()
    message(STATUS "Packages go without Qt's Japanese texts: there is no qtbase_ja.qm")
  endif()
endfunction()
