# Writes names into a source file: cmake -DSTUBS=<folder> -DKIT=<list> -DOUTPUT=... -P embednames.cmake
set(text "#include \"host/code/knownnames.h\"\n\nnamespace brvhost {\nnamespace {\n\n")

# Appends an array; one without names has an empty one, as no array has none.
function(append_array name)
  list(LENGTH ARGN count)
  set(array "constexpr std::string_view ${name}[] = {")
  foreach(entry IN LISTS ARGN)
    string(APPEND array "\n    \"${entry}\",")
  endforeach()
  if(count EQUAL 0)
    string(APPEND array "\"\"")
  endif()
  set(text "${text}${array}};\n" PARENT_SCOPE)
endfunction()

file(STRINGS ${KIT} kit REGEX "^[^#]")
# What the standard library's types are called depends on the library.
list(TRANSFORM kit REPLACE "St7__cxx11.*" "*")
append_array(kKit ${kit})
list(FILTER kit INCLUDE REGEX "^(main|BrevixExtension.*)$")
append_array(kEntryPoints ${kit})

file(GLOB_RECURSE stubs ${STUBS}/*.tbd)
list(SORT stubs)
set(libraries "")
set(number 0)
foreach(stub IN LISTS stubs)
  file(STRINGS ${stub} path REGEX "^install-name: '.*'$")
  if(NOT path)
    message(FATAL_ERROR "${stub}: has no line with an install-name")
  endif()
  string(REGEX REPLACE "^install-name: '(.*)'$" "\\1" path ${path})
  file(STRINGS ${stub} other REGEX "symbols: *[^ ]")
  if(other)
    message(FATAL_ERROR "${stub}: has symbols that are not each on a line of its own")
  endif()
  file(STRINGS ${stub} names REGEX "^ +- '_.*'$")
  list(TRANSFORM names REPLACE "^ +- '_(.*)'$" "\\1")
  append_array(kLibrary${number} ${names})
  string(APPEND libraries "    {\"${path}\", kLibrary${number}},\n")
  math(EXPR number "${number} + 1")
endforeach()

string(APPEND text "constexpr MacLibrary kLibraries[] = {\n${libraries}};\n\n}  // namespace\n\n"
       "std::span<const MacLibrary> KnownMacLibraries() { return kLibraries; }\n"
       "std::span<const std::string_view> KitNames() { return kKit; }\n"
       "std::span<const std::string_view> EntryPointNames() { return kEntryPoints; }\n\n}  // namespace brvhost\n")
file(WRITE ${OUTPUT} "${text}")
