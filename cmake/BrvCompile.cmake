# What every target is compiled with.
include(GNUInstallDirs)

option(BRV_BUILD_TESTS "Build the tests" ON)
# On a Mac the bundle is built with the developer tools alone; brvhost needs libraries besides.
if(APPLE)
  set(build_host_by_default OFF)
else()
  set(build_host_by_default ON)
endif()
option(BRV_BUILD_HOST "Build brvhost" ${build_host_by_default})
option(BRV_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(BRV_MACOS_TESTS "Build the bundle for macOS too, and run its tests on Linux" OFF)
option(BRV_WERROR "Take warnings for errors" OFF)
set(BRV_SANITIZE "" CACHE STRING "Compile with these sanitizers, such as address,undefined or thread")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

# brv_compile(<target>...): the warnings, and the sanitizers where they are asked for. Each target of ours is given it; an
# author's extension, which the installed kit builds, is not.
function(brv_compile)
  foreach(target IN LISTS ARGN)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      # It takes some joins of standard strings for overlapping copies.
      target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
    if(BRV_WERROR)
      target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(BRV_SANITIZE)
      target_compile_options(${target} PRIVATE -fsanitize=${BRV_SANITIZE} -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
      target_link_options(${target} PRIVATE -fsanitize=${BRV_SANITIZE})
    endif()
  endforeach()
endfunction()

# Sources named _mac or _linux belong to one platform; those of the other are left out.
if(APPLE)
  set(other_platform linux)
else()
  set(other_platform mac)
endif()
