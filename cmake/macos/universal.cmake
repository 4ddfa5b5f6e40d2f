# Makes the executable of an extension for macOS on Linux: configures a project for each processor, builds the target there, and
# joins what it linked.
#
#   cmake -DSOURCE=<project> -DBINARY=<folder> -DTARGET=<name> -DEXECUTABLE=<result> [-DGENERATOR=<name>] [-DBUILD_TYPE=<type>]
#         [-DOPTIONS=<option>;...] [-DBRV_ZIG=<path>] [-DBRV_LD64=<path>] [-DBRV_LIPO=<path>] [-DBRV_NM=<path>] -P universal.cmake
#
# The project is configured with the options, without tests, in a folder of BINARY that is named after the processor. The
# result is written only if it is another.
cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/tools.cmake)
if(BRV_MACOS_MISSING)
  message(FATAL_ERROR "${TARGET} for macOS: ${BRV_MACOS_MISSING}")
endif()
if(NOT GENERATOR)
  set(GENERATOR Ninja)
endif()
if(NOT BUILD_TYPE)
  set(BUILD_TYPE Release)
endif()

# They are meant for the compiler of the system that builds.
foreach(variable CFLAGS CXXFLAGS LDFLAGS CMAKE_TOOLCHAIN_FILE)
  unset(ENV{${variable}})
endforeach()
# What the compiler keeps belongs to this build.
foreach(variable ZIG_GLOBAL_CACHE_DIR ZIG_LOCAL_CACHE_DIR)
  set(ENV{${variable}} ${BINARY}/compiled)
endforeach()
cmake_host_system_information(RESULT processors QUERY NUMBER_OF_LOGICAL_CORES)

set(images)
foreach(processor x86_64 arm64)
  set(folder ${BINARY}/${processor})
  execute_process(
    COMMAND ${CMAKE_COMMAND} --no-warn-unused-cli -S ${SOURCE} -B ${folder} -G ${GENERATOR} --toolchain ${CMAKE_CURRENT_LIST_DIR}/toolchain.cmake
            -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DBUILD_TESTING=OFF -DBRV_ZIG=${BRV_ZIG} -DBRV_LD64=${BRV_LD64} -DBRV_NM=${BRV_NM}
            -DBRV_MACOS_ARCHITECTURE=${processor} ${OPTIONS}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --build ${folder} --parallel ${processors} --target ${TARGET} COMMAND_ERROR_IS_FATAL ANY)
  list(APPEND images ${folder}/${TARGET}.bundle/Contents/MacOS/${TARGET})
endforeach()

set(joined ${BINARY}/${TARGET}.joined)
execute_process(COMMAND ${BRV_LIPO} -create ${images} -output ${joined} COMMAND_ERROR_IS_FATAL ANY)
file(COPY_FILE ${joined} ${EXECUTABLE} ONLY_IF_DIFFERENT)
file(REMOVE ${joined})
