# brv_add_test(NAME <name> SOURCES <file>... [LIBRARIES <target>...] [LABELS <label>...] [WHOLE])
#
# A GoogleTest program whose every TEST is a test of CTest under its own name. With WHOLE the program is one
# test: its tests share what a process keeps for life, and follow one another.
find_package(GTest)
include(GoogleTest)

function(brv_add_test)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "WHOLE" "NAME" "SOURCES;LIBRARIES;LABELS")
  add_executable(${ARG_NAME} ${ARG_SOURCES})
  target_include_directories(${ARG_NAME} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${ARG_NAME} PRIVATE ${ARG_LIBRARIES} GTest::gmock_main)
  # Data of the bundle is reached through the GOT: a copy in the program would be another variable than the bundle's own.
  target_compile_options(${ARG_NAME} PRIVATE -fPIC)
  target_compile_definitions(${ARG_NAME} PRIVATE BRV_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                                 BRV_BINARY_DIR="${CMAKE_BINARY_DIR}")
  set_target_properties(${ARG_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  if(ARG_WHOLE)
    add_test(NAME ${ARG_NAME} COMMAND ${ARG_NAME})
    set_tests_properties(${ARG_NAME} PROPERTIES LABELS "${ARG_LABELS}")
    return()
  endif()
  gtest_discover_tests(${ARG_NAME} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS "${ARG_LABELS}")
endfunction()
