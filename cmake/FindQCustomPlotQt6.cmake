# The target QCustomPlotQt6::QCustomPlotQt6: Debian has a CMake package for it; vcpkg, or one's own build with the
# library's project file, leaves a header and a library.
find_package(QCustomPlotQt6 CONFIG QUIET)
if(NOT TARGET QCustomPlotQt6::QCustomPlotQt6)
  find_path(QCUSTOMPLOT_INCLUDE_DIR qcustomplot.h)
  find_library(QCUSTOMPLOT_LIBRARY NAMES QCustomPlotQt6 qcustomplot-qt6 qcustomplot2 qcustomplot)
  set(needed QCUSTOMPLOT_LIBRARY QCUSTOMPLOT_INCLUDE_DIR)
  if(WIN32)
    find_file(QCUSTOMPLOT_DLL PATH_SUFFIXES bin
      NAMES libQCustomPlotQt6.dll libqcustomplot-qt6.dll qcustomplot2.dll libqcustomplot.dll qcustomplot.dll)
    list(APPEND needed QCUSTOMPLOT_DLL)
  endif()
  include(FindPackageHandleStandardArgs)
  find_package_handle_standard_args(QCustomPlotQt6 REQUIRED_VARS ${needed})
  if(QCustomPlotQt6_FOUND)
    add_library(QCustomPlotQt6::QCustomPlotQt6 SHARED IMPORTED)
    set_target_properties(QCustomPlotQt6::QCustomPlotQt6 PROPERTIES
      INTERFACE_INCLUDE_DIRECTORIES "${QCUSTOMPLOT_INCLUDE_DIR}"
      INTERFACE_COMPILE_DEFINITIONS QCUSTOMPLOT_USE_LIBRARY
      INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::PrintSupport"
      IMPORTED_LOCATION "${QCUSTOMPLOT_LIBRARY}")
    if(WIN32)
      set_target_properties(QCustomPlotQt6::QCustomPlotQt6 PROPERTIES
        IMPORTED_LOCATION "${QCUSTOMPLOT_DLL}" IMPORTED_IMPLIB "${QCUSTOMPLOT_LIBRARY}")
    endif()
  endif()
endif()
