# Everything lies in one folder, as Windows programs are used to: the packages are that folder.
set(QUORVANE_LIBRARY_FOLDER .)
set(QUORVANE_PLUGIN_FOLDER plugins)
set(QUORVANE_TRANSLATION_FOLDER translations)

install(TARGETS ${quorvanePrograms} RUNTIME_DEPENDENCY_SET bundled RUNTIME DESTINATION . COMPONENT program)
install(FILES "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" DESTINATION . COMPONENT program)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION . COMPONENT licence)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION . COMPONENT program)

if(TARGET quorvane)
  install(FILES windows/qt.conf windows/Libraries.txt DESTINATION . ${QUORVANE_BUNDLE})
  quorvane_bundle_translation()
  quorvane_bundle_plugin(platforms/qwindows)
  set(style qwindowsvistastyle)
  if(Qt6_VERSION VERSION_GREATER_EQUAL 6.7)
    set(style qmodernwindowsstyle)
  endif()
  quorvane_bundle_plugin(styles/${style})

  # Named one by one: what the programs ask for is looked up in lower case, which only Windows takes for the same.
  set(libraries Qt6::Core Qt6::Gui Qt6::Widgets Qt6::PrintSupport QCustomPlotQt6::QCustomPlotQt6)
  install(IMPORTED_RUNTIME_ARTIFACTS ${libraries} RUNTIME_DEPENDENCY_SET bundled RUNTIME DESTINATION . ${QUORVANE_BUNDLE})

  # The compiler's libraries, and those of a Qt that uses others.
  set(folders "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}")
  foreach(library libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${library}
      OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    get_filename_component(folder "${file}" DIRECTORY)
    list(APPEND folders "${folder}")
  endforeach()
  set(which PRE_EXCLUDE_REGEXES "^(api|ext)-ms-" "^(lib)?q(t6|customplot)" POST_EXCLUDE_REGEXES "[/\\][Ss]ystem32[/\\]")
  if(CMAKE_CROSSCOMPILING)
    # The system's own cannot be told by their folder. And the install script looks for this system's kind of program.
    set(which PRE_INCLUDE_REGEXES "^lib(stdc|gcc|winpthread)" PRE_EXCLUDE_REGEXES ".")
    install(CODE "
      set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
      set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
      set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND [[${CMAKE_OBJDUMP}]])" ${QUORVANE_BUNDLE})
  endif()
  install(RUNTIME_DEPENDENCY_SET bundled DIRECTORIES ${folders} ${which} RUNTIME DESTINATION . ${QUORVANE_BUNDLE})
endif()

# ---- packages

set(CPACK_GENERATOR ZIP)
find_program(QUORVANE_MAKENSIS makensis)
if(QUORVANE_MAKENSIS AND TARGET quorvane)
  list(APPEND CPACK_GENERATOR NSIS64)
endif()
set(CPACK_PACKAGE_FILE_NAME "quorvane-${PROJECT_VERSION}-windows-x64")
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/windows/StripLibraries.cmake")
set(CPACK_QUORVANE_STRIP "${CMAKE_STRIP}")
set(CPACK_QUORVANE_FOLDER "${CMAKE_CURRENT_SOURCE_DIR}/windows")
list(PREPEND CMAKE_MODULE_PATH "${CMAKE_CURRENT_SOURCE_DIR}/windows") # where cpack finds NSIS.template.in
