# What is installed: the kit for authors, and brvhost with LegerLines and its documents. debian/ makes packages of it.
include(CMakePackageConfigHelpers)

set(BRV_HEADER_FOLDER ${CMAKE_INSTALL_INCLUDEDIR}/BrvEDK)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/BrvEDK)

install(FILES ${BRV_KIT_HEADERS} DESTINATION ${BRV_HEADER_FOLDER})
install(DIRECTORY platform/include/ DESTINATION ${BRV_HEADER_FOLDER}/platform)
install(TARGETS BrvEDK brvplatform EXPORT BrvEDKTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT BrvEDKTargets NAMESPACE BrvEDK:: DESTINATION ${package_folder})
configure_package_config_file(cmake/package/BrvEDKConfig.cmake.in ${CMAKE_BINARY_DIR}/package/BrvEDKConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/BrvEDKConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/package/BrvEDKConfig.cmake ${CMAKE_BINARY_DIR}/package/BrvEDKConfigVersion.cmake
              cmake/BrvExtension.cmake cmake/BrvMacOS.cmake cmake/BrvExecutableFolder.cmake cmake/BrvStrings.cmake
              cmake/BrvCheckImage.cmake
              cmake/Info.plist.in
        DESTINATION ${package_folder})
install(DIRECTORY cmake/exports DESTINATION ${package_folder})
# What builds extensions for macOS: the toolchain, and the kit's sources where those of the tree find them.
set(BRV_SOURCE_FOLDER ${CMAKE_INSTALL_DATADIR}/brvedk)
install(DIRECTORY BrvEDK LIB util DESTINATION ${BRV_SOURCE_FOLDER})
install(DIRECTORY platform/include DESTINATION ${BRV_SOURCE_FOLDER}/platform)
install(DIRECTORY cmake/macos DESTINATION ${BRV_SOURCE_FOLDER}/cmake PATTERN *.sh EXCLUDE)
install(PROGRAMS cmake/macos/fetch-zig.sh DESTINATION ${BRV_SOURCE_FOLDER}/cmake/macos)
install(FILES cmake/BrvCompile.cmake cmake/BrvKit.cmake DESTINATION ${BRV_SOURCE_FOLDER}/cmake)
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/package/brvedk.pc.in ${CMAKE_BINARY_DIR}/package/brvedk.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/package/brvedk.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(BRV_BUILD_HOST)
  set_target_properties(brvhost PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS brvhost DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(DIRECTORY ${CMAKE_BINARY_DIR}/share/ DESTINATION ${CMAKE_INSTALL_DATAROOTDIR})
  install(DIRECTORY ${CMAKE_BINARY_DIR}/LegerLines.bundle DESTINATION ${BRV_BUNDLE_FOLDER} PATTERN *.so EXCLUDE)
  # As a target it loses the way to this build's libraries: a host has them loaded.
  install(TARGETS LegerLines LIBRARY DESTINATION ${BRV_BUNDLE_FOLDER}/LegerLines.bundle/Contents/${BRV_EXECUTABLE_FOLDER})
endif()
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
