# The installed package of the Windows build (`cmake --install`):
#   bin/                  afx.dll, twutil.dll, twstddlg.dll, twdemo.exe and
#                         the C++ runtime DLLs
#   lib/                  the import libraries
#   include/              the public headers ("afx.h", "twutil.h",
#                         "twstddlg.h", "values/color.h", ...)
#   lib/cmake/twstddlg/   the package config: find_package(twstddlg) gives
#                         twstddlg::afx, twstddlg::twutil, twstddlg::twstddlg
# The module rules are in tw_add_module and tw_install_module (TwCommon.cmake).
include(CMakePackageConfigHelpers)

set(TW_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/twstddlg)

install(EXPORT twstddlgTargets
        NAMESPACE twstddlg::
        FILE twstddlgTargets.cmake
        DESTINATION ${TW_PACKAGE_DIR})

configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/twstddlgConfig.cmake.in
  ${CMAKE_BINARY_DIR}/package/twstddlgConfig.cmake
  INSTALL_DESTINATION ${TW_PACKAGE_DIR}
  PATH_VARS CMAKE_INSTALL_INCLUDEDIR CMAKE_INSTALL_BINDIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/twstddlgConfigVersion.cmake
  VERSION ${PROJECT_VERSION}
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/package/twstddlgConfig.cmake
              ${CMAKE_BINARY_DIR}/package/twstddlgConfigVersion.cmake
        DESTINATION ${TW_PACKAGE_DIR})
