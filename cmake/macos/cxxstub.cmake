# Writes the linker's stub of the system's C++ library: the names that objects want of the standard library. What the headers
# declare, that library has; what it got after macOS 11 they declare as unavailable, and the compiler refuses.
#
#   cmake -DNM=<llvm-nm> -DSTUB=<file> -P cxxstub.cmake -- <object>...      takes archives and response files, leaves out the rest
set(objects)
foreach(i RANGE ${CMAKE_ARGC})
  if("${CMAKE_ARGV${i}}" MATCHES "(^@|\\.(o|a)$)")
    list(APPEND objects ${CMAKE_ARGV${i}})
  endif()
endforeach()
execute_process(COMMAND ${NM} --undefined-only --format=posix ${objects} OUTPUT_VARIABLE lines COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "(^|\n)_[^ \n]+" names "${lines}")
list(TRANSFORM names STRIP)
# Functions, types and what belongs to them in std, among them virtual functions by way of a thunk; memory; exceptions.
set(of_std "__Z(T[VISTC]|Tv[n0-9_]+|Th[n0-9]+_|GV)?(N[rVKRO]*)?St.*")
set(of_types "__ZT[ISV](N10__cxxabiv1.*|P?K?[a-z]|D[a-z])")
set(of_memory "__Z(nw|na|dl|da).*")
set(of_exceptions "___cxa_.*|___dynamic_cast|___gxx_personality_v0")
list(FILTER names INCLUDE REGEX "^(${of_std}|${of_types}|${of_memory}|${of_exceptions})$")
# The C library has these.
list(FILTER names EXCLUDE REGEX "^___cxa_(atexit|finalize)")
list(REMOVE_DUPLICATES names)
list(SORT names)
list(TRANSFORM names REPLACE ".+" "      - '\\0'")
list(JOIN names "\n" names)
file(WRITE ${STUB} "--- !tapi-tbd
tbd-version: 4
targets: [ x86_64-macos, arm64-macos ]
install-name: '/usr/lib/libc++.1.dylib'
exports:
  - targets: [ x86_64-macos, arm64-macos ]
    symbols:
${names}
...
")
