# Builds for macOS (from version 11, one processor) on Linux: compiler and C and C++ headers of the Zig toolchain, LLVM's
# linker for Mach-O, the declarations of platform/, and stubs of the system's libraries. universal.cmake sets the paths, and
# joins what is built for either processor.
set(BRV_ZIG "" CACHE FILEPATH "The zig program, in the folder of its toolchain")
set(BRV_LD64 "" CACHE FILEPATH "LLVM's linker for Mach-O, ld64.lld")
set(BRV_NM "" CACHE FILEPATH "LLVM's reader of symbols, llvm-nm")
set(BRV_MACOS_ARCHITECTURE "" CACHE STRING "The processor, as the linker names it: x86_64 or arm64")
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES BRV_ZIG BRV_LD64 BRV_NM BRV_MACOS_ARCHITECTURE)
# The compiler's checks need no linker then.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR ${BRV_MACOS_ARCHITECTURE})
set(CMAKE_C_COMPILER ${BRV_ZIG} cc)
set(CMAKE_CXX_COMPILER ${BRV_ZIG} c++)
string(REPLACE arm64 aarch64 compiler_target ${BRV_MACOS_ARCHITECTURE}-macos.11.0)
set(CMAKE_C_COMPILER_TARGET ${compiler_target})
set(CMAKE_CXX_COMPILER_TARGET ${compiler_target})
set(CMAKE_AR ${BRV_ZIG})
set(CMAKE_RANLIB ${BRV_ZIG})
set(CMAKE_INSTALL_NAME_TOOL ${CMAKE_COMMAND})

# Debug information, which this compiler writes unasked, would name the folders of the build.
set(CMAKE_C_FLAGS_INIT "-g0")
# What the system's C++ library got after macOS 11 is to be refused: this compiler leaves that out of its headers.
set(CMAKE_CXX_FLAGS_INIT "-g0 -U_LIBCPP_HAS_NO_VENDOR_AVAILABILITY_ANNOTATIONS")
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES ${CMAKE_CURRENT_LIST_DIR}/../../platform/include)

set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR}/stubs)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
file(GLOB_RECURSE BRV_LINK_STUBS CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/stubs/*.tbd)
set(CMAKE_USER_MAKE_RULES_OVERRIDE ${CMAKE_CURRENT_LIST_DIR}/rules.cmake)
