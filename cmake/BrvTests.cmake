# brv_add_test(NAME <name> SOURCES <file>... [LIBRARIES <target>...] [LABELS <label>...] [PREFIX <prefix>] [WHOLE])
#
# A GoogleTest program whose every TEST is a test of CTest under its own name, or with a prefix before it, where its
# sources are those of another program as well. With WHOLE the program is one test: its tests share what a process keeps
# for life, and follow one another.
#
# A program that links ImageUnderTest runs a second time on the image for macOS, where BRV_MACHO_FOLDER has its casing: the
# loader of the system finds the casing there before it comes to the Linux executable.
find_package(GTest)
include(GoogleTest)

function(brv_add_test)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "WHOLE" "NAME;PREFIX" "SOURCES;LIBRARIES;LABELS")
  add_executable(${ARG_NAME} ${ARG_SOURCES})
  brv_compile(${ARG_NAME})
  target_include_directories(${ARG_NAME} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${ARG_NAME} PRIVATE ${ARG_LIBRARIES} GTest::gmock_main)
  # Data of the bundle is reached through the GOT: a copy in the program would be another variable than the bundle's own.
  target_compile_options(${ARG_NAME} PRIVATE -fPIC)
  target_compile_definitions(${ARG_NAME} PRIVATE BRV_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                                 BRV_BINARY_DIR="${CMAKE_BINARY_DIR}")
  set_target_properties(${ARG_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  _brv_register_test(${ARG_NAME} "${ARG_WHOLE}" "${ARG_PREFIX}" "${ARG_LABELS}")
  if(BRV_MACHO_FOLDER AND ImageUnderTest IN_LIST ARG_LIBRARIES)
    _brv_register_test(${ARG_NAME} "${ARG_WHOLE}" "macho." macho ENVIRONMENT LD_LIBRARY_PATH=${BRV_MACHO_FOLDER})
  endif()
endfunction()

# The tests of a program under their names after a prefix, with a label and more properties.
function(_brv_register_test program whole prefix label)
  set(properties ${ARGN})
  if(label)
    list(APPEND properties LABELS ${label})
  endif()
  if(NOT whole)
    set(names)
    if(prefix)
      set(names TEST_PREFIX ${prefix})
    endif()
    gtest_discover_tests(${program} ${names} TEST_LIST ${prefix}${program} DISCOVERY_TIMEOUT 60
                         PROPERTIES ${properties})
    return()
  endif()
  add_test(NAME ${prefix}${program} COMMAND ${program})
  if(properties)
    set_tests_properties(${prefix}${program} PROPERTIES ${properties})
  endif()
endfunction()
