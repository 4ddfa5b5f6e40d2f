# The list of symbols that a bundle exports, from the headers that declare them with BRV_EXPORT.
#
# brv_write_export_list(OUTPUT <file> HEADERS <header>...)
#
# Writes a version script for GNU linkers, or a list of exported symbols for Apple's. C functions and data go by their names,
# C++ functions and classes by all of their mangled names; the extension's main is the symbol "main".

# The names that one header declares, in two lists: those with C linkage and those of C++.
function(_brv_exported_names header c_names_variable cxx_names_variable)
  file(READ ${header} text)
  # Comments and macros may hold anything; the semicolons of the rest would divide it as a list.
  string(REGEX REPLACE "//[^\n]*|#define [^\n]*" "" text "${text}")
  string(REPLACE ";" "|" text "${text}")
  string(REPLACE "[" "" text "${text}")
  string(REPLACE "]" "" text "${text}")
  # What lies between extern "C" { and the closing brace at the start of a line.
  string(REGEX MATCHALL "extern \"C\" {[^}]*}" c_blocks "${text}")
  string(REGEX REPLACE "extern \"C\" {[^}]*}" "" cxx_text "${text}")
  _brv_names_in("${c_blocks}" c_names)
  _brv_names_in("${cxx_text}" cxx_names)
  set(${c_names_variable} ${c_names} PARENT_SCOPE)
  set(${cxx_names_variable} ${cxx_names} PARENT_SCOPE)
endfunction()

function(_brv_names_in text names_variable)
  set(names)
  string(REGEX MATCHALL "BRV_EXPORT [^|({]+" declarations "${text}")
  foreach(declaration IN LISTS declarations)
    string(REGEX MATCH "[A-Za-z_0-9]+ *$" name "${declaration}")
    string(STRIP "${name}" name)
    list(APPEND names ${name})
  endforeach()
  set(${names_variable} ${names} PARENT_SCOPE)
endfunction()

function(brv_write_export_list)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "OUTPUT" "HEADERS")
  set(symbols)
  foreach(header IN LISTS ARG_HEADERS)
    _brv_exported_names(${header} c_names cxx_names)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
    list(APPEND symbols ${c_names})
    foreach(name IN LISTS cxx_names)
      string(LENGTH ${name} length)
      list(APPEND symbols _Z${length}${name}* _ZN${length}${name}* _ZNK${length}${name}*
           _ZT[VIS]${length}${name})
    endforeach()
  endforeach()
  list(TRANSFORM symbols REPLACE "^BrevixExtensionMain$" "main")
  list(REMOVE_DUPLICATES symbols)
  if(APPLE)
    list(TRANSFORM symbols PREPEND "_")
    list(JOIN symbols "\n" content)
    file(CONFIGURE OUTPUT ${ARG_OUTPUT} CONTENT "${content}\n" @ONLY)
  else()
    list(JOIN symbols ";\n    " content)
    file(CONFIGURE OUTPUT ${ARG_OUTPUT} CONTENT "{\n  global:\n    ${content};\n  local: *;\n};\n" @ONLY)
  endif()
endfunction()
