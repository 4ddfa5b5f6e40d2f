# Fails where a source calls the property checker itself and could drop its result: property.h alone does, and looks at it.
#
#   cmake -DSOURCE=<folder of the project> -P propertyresults.cmake
set(wrapper ${SOURCE}/tests/support/property.h)
file(GLOB_RECURSE sources ${SOURCE}/tests/*.cpp ${SOURCE}/tests/*.h ${SOURCE}/bench/*.cpp ${SOURCE}/bench/*.h)
set(callers)
foreach(source IN LISTS sources)
  file(READ ${source} text)
  string(REGEX REPLACE "//[^\n]*" "" text "${text}")
  # Names of the namespace may be brought in, or the namespace under another name; nothing else in it that checks a
  # property is for tests.
  if(text MATCHES "rc::(detail::)?check|using (namespace )?rc[:;]|namespace [a-zA-Z_]+ *= *(::)?rc[:;]")
    list(APPEND callers ${source})
  endif()
endforeach()
if(NOT callers STREQUAL wrapper)
  list(REMOVE_ITEM callers ${wrapper})
  message(FATAL_ERROR "Call ExpectHolds of tests/support/property.h instead of rc::check, here: ${callers}")
endif()
