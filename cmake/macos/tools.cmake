# What the build for macOS needs on Linux: BRV_ZIG, BRV_LD64, BRV_LIPO and BRV_NM are the paths of its programs, and
# BRV_MACOS_MISSING is a sentence on the first that is not there, or empty. As a script, prints that sentence.
set(BRV_ZIG_VERSION 0.11.0)
set(cache "$ENV{XDG_CACHE_HOME}")
if(NOT cache)
  set(cache "$ENV{HOME}/.cache")
endif()
set(BRV_ZIG_FOLDER ${cache}/legerlines/zig-${BRV_ZIG_VERSION})
set(BRV_MACOS_MISSING "")

# Debian has some of LLVM's programs under their version's name only.
function(_brv_find_macos_tool variable name package)
  set(names ${name})
  foreach(version RANGE 19 14 -1)
    list(APPEND names ${name}-${version})
  endforeach()
  find_program(${variable} NAMES ${names} DOC "${name}, for the build for macOS")
  if(NOT EXISTS "${${variable}}" AND NOT BRV_MACOS_MISSING)
    set(BRV_MACOS_MISSING "there is no ${name}: install the package ${package}, or name the program with -D${variable}=<path>"
        PARENT_SCOPE)
  endif()
endfunction()

find_program(BRV_ZIG zig PATHS ${BRV_ZIG_FOLDER} NO_DEFAULT_PATH DOC "The zig program, in the folder of its toolchain")
get_filename_component(zig_folder "${BRV_ZIG}" DIRECTORY)
if(NOT EXISTS "${BRV_ZIG}")
  set(BRV_MACOS_MISSING
      "there is no Zig ${BRV_ZIG_VERSION}: fetch it with ${CMAKE_CURRENT_LIST_DIR}/fetch-zig.sh, or name the program with -DBRV_ZIG=<path>")
elseif(NOT EXISTS ${zig_folder}/lib/libc/darwin/libSystem.11.tbd)
  set(BRV_MACOS_MISSING "${BRV_ZIG} is not in the folder of a Zig ${BRV_ZIG_VERSION}, which has lib/libc/darwin/libSystem.11.tbd")
endif()
_brv_find_macos_tool(BRV_LD64 ld64.lld lld)
_brv_find_macos_tool(BRV_LIPO llvm-lipo llvm)
_brv_find_macos_tool(BRV_NM llvm-nm llvm)

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE AND BRV_MACOS_MISSING)
  message("${BRV_MACOS_MISSING}")
endif()
