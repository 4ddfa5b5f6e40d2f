if(NOT BRV_BUILD_HOST)
  return()
endif()
find_package(EXPAT REQUIRED)
add_executable(bench-run run.cpp)
target_link_libraries(bench-run PRIVATE brvhostcore EXPAT::EXPAT)
target_compile_definitions(bench-run PRIVATE BRVHOST="$<TARGET_FILE:brvhost>"
                                             BRV_BUNDLE="${CMAKE_BINARY_DIR}/LegerLines.bundle"
                                             BRV_SAMPLE="${PROJECT_SOURCE_DIR}/samples/piano.musicxml")
add_dependencies(bench-run brvhost LegerLines)
