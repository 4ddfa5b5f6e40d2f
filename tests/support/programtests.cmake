# add_program_test(<name> <file> <label> [<variable>=<value>...])
#
# A test by Python's unittest that runs brvhost. support/python holds what such tests share, and the environment, which
# the last arguments may change, names what they work on.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

if(BRV_SANITIZE)
  set(sanitized ON)
else()
  set(sanitized OFF)
endif()

# The path of a program of the build, or of what runs it under the emulator.
function(program_to_start variable program)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    set(${variable} ${CMAKE_BINARY_DIR}/tests/emulated/${program} PARENT_SCOPE)
  else()
    set(${variable} $<TARGET_FILE:${program}> PARENT_SCOPE)
  endif()
endfunction()
program_to_start(brvhost brvhost)
program_to_start(brvhost_docs brvhost-docs)

function(add_program_test name file label)
  add_test(NAME ${name} COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  set(environment
      BRVHOST=${brvhost}
      BRVHOST_DOCS=${brvhost_docs}
      BRV_BUNDLE=${CMAKE_BINARY_DIR}/LegerLines.bundle
      BRV_EXECUTABLE_FOLDER=${BRV_EXECUTABLE_FOLDER}
      BRV_FAULTY_BUNDLES=${CMAKE_BINARY_DIR}/tests/bundles
      BRV_SAMPLES=${PROJECT_SOURCE_DIR}/samples
      BRV_SANITIZED=${sanitized}
      BRV_EMULATED=$<IF:$<BOOL:${CMAKE_CROSSCOMPILING_EMULATOR}>,ON,OFF>
      BRV_COUNTED=$<IF:$<BOOL:${BRV_COVERAGE}>,ON,OFF>
      BRV_SOURCE=${PROJECT_SOURCE_DIR}
      BRV_SHARE=${CMAKE_BINARY_DIR}/share
      BRV_BUILD=${CMAKE_BINARY_DIR}
      PYTHONPATH=${PROJECT_SOURCE_DIR}/tests/support/python
      PYTHONDONTWRITEBYTECODE=1
      # In the locale C, LANGUAGE does not count.
      LC_ALL=C.UTF-8
      ${ARGN})
  # What is built with the installed kit is for the same processor.
  if(CMAKE_TOOLCHAIN_FILE)
    list(APPEND environment CMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE})
  endif()
  set_tests_properties(${name} PROPERTIES LABELS ${label} ENVIRONMENT "${environment}")
endfunction()
