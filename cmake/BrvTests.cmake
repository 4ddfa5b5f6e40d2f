# brv_add_test(NAME <name> SOURCES <file>... [LIBRARIES <target>...] [LABELS <label>...])
#
# A GoogleTest program whose every TEST is a test of CTest under its own name.
function(brv_add_test)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "NAME" "SOURCES;LIBRARIES;LABELS")
  find_package(GTest REQUIRED)
  include(GoogleTest)
  add_executable(${ARG_NAME} ${ARG_SOURCES})
  target_include_directories(${ARG_NAME} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${ARG_NAME} PRIVATE ${ARG_LIBRARIES} GTest::gmock_main)
  # Data of the bundle is reached through the GOT: a copy in the program would be another variable than the bundle's own.
  target_compile_options(${ARG_NAME} PRIVATE -fPIC)
  target_compile_definitions(${ARG_NAME} PRIVATE BRV_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  set_target_properties(${ARG_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  gtest_discover_tests(${ARG_NAME} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS "${ARG_LABELS}")
endfunction()
