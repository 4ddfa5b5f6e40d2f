# What brv_add_extension does where the executable for macOS is asked for on Linux.
option(BRV_MACOS "Make the executable for macOS, too" OFF)
set(BRV_MACOS_OPTIONS "" CACHE STRING "Options of CMake for the project's builds for macOS, such as -DMINE=ON")
mark_as_advanced(BRV_MACOS_OPTIONS)
if(NOT DEFINED BRV_MACOS_FOLDER)
  set(BRV_MACOS_FOLDER ${CMAKE_CURRENT_LIST_DIR}/macos)
endif()

# With the target, after its executable for Linux: what is wrong with the sources is found there first.
function(_brv_add_macos_executable name contents)
  include(${BRV_MACOS_FOLDER}/tools.cmake)
  if(BRV_MACOS_MISSING)
    message(FATAL_ERROR "BRV_MACOS: ${BRV_MACOS_MISSING}")
  endif()
  set(generator "Unix Makefiles")
  if(CMAKE_GENERATOR MATCHES "Ninja")
    set(generator Ninja)
  endif()
  add_custom_target(
    ${name}-macos ALL
    COMMAND ${CMAKE_COMMAND} -E make_directory ${contents}/MacOS
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${CMAKE_SOURCE_DIR} -DBINARY=${CMAKE_BINARY_DIR}/macos -DTARGET=${name}
            -DEXECUTABLE=${contents}/MacOS/${name} -DGENERATOR=${generator} -DBUILD_TYPE=${CMAKE_BUILD_TYPE}
            "-DOPTIONS=-DBrvEDK_DIR=${BrvEDK_DIR};${BRV_MACOS_OPTIONS}" -DBRV_ZIG=${BRV_ZIG} -DBRV_LD64=${BRV_LD64}
            -DBRV_LIPO=${BRV_LIPO} -DBRV_NM=${BRV_NM} -P ${BRV_MACOS_FOLDER}/universal.cmake
    COMMENT "Building ${name} for macOS"
    VERBATIM)
  # The extensions of a project share its builds for macOS, which take one at a time.
  get_property(before GLOBAL PROPERTY _brv_macos_targets)
  add_dependencies(${name}-macos ${name} ${before})
  set_property(GLOBAL APPEND PROPERTY _brv_macos_targets ${name}-macos)
endfunction()
