if(NOT BRV_BUILD_HOST)
  return()
endif()
set(command ${PROJECT_SOURCE_DIR}/extension/legerlinescommand.cpp)
# The same command a second time, without progress.
add_library(SilentCommand OBJECT ${command})
target_compile_options(SilentCommand PRIVATE -include ${CMAKE_CURRENT_SOURCE_DIR}/noprogress.h)
target_link_libraries(SilentCommand PRIVATE BrvEDKInternal)
add_executable(bench-walk walk.cpp ${command})
target_include_directories(bench-walk PRIVATE ${PROJECT_SOURCE_DIR}/extension)
target_link_libraries(bench-walk PRIVATE SilentCommand BrvEDKInternal benchmark::benchmark)

add_library(WalkHost SHARED walkhost.cpp)
target_link_libraries(WalkHost PRIVATE brvhostcore)
make_host_bundle(WalkHost)
target_compile_definitions(bench-walk PRIVATE BRV_HOST_BUNDLE="${CMAKE_BINARY_DIR}/bench/WalkHost.bundle"
                                              BRV_SAMPLE="${PROJECT_SOURCE_DIR}/samples/piano.musicxml")
add_dependencies(bench-walk WalkHost)
