# brv_add_extension(NAME <name> IDENTIFIER <identifier> SOURCES <file>... [INFO_PLIST <template>]
#                   [LOCALIZATIONS <folder>.lproj...])
#
# Makes the bundle of an extension, <build>/<name>.bundle, with the whole kit inside: its executable, its Info.plist
# from the template (one that will do for most stands beside this file), and its localized texts. What the source marks
# with BRV_EXPORT is exported, and nothing else. What is wrong with any of it stops the build with a sentence.
#
# On Linux with -DBRV_MACOS=ON, the bundle also gets an executable for Macs of either processor: the project is configured
# with the toolchain of macos/ for each, with BRV_MACOS_OPTIONS and without tests, and the target is built there.
include(${CMAKE_CURRENT_LIST_DIR}/BrvExecutableFolder.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/BrvStrings.cmake)
set(_brv_check_image ${CMAKE_CURRENT_LIST_DIR}/BrvCheckImage.cmake)
set(_brv_info_plist ${CMAKE_CURRENT_LIST_DIR}/Info.plist.in)
# The linker's part: what the C++ library would export besides stays inside.
set(_brv_runtime_map ${CMAKE_CURRENT_LIST_DIR}/exports/runtime.map)
set(_brv_runtime_unexported ${CMAKE_CURRENT_LIST_DIR}/exports/runtime.unexported)
if(CMAKE_SYSTEM_NAME STREQUAL Linux)
  include(${CMAKE_CURRENT_LIST_DIR}/BrvMacOS.cmake)
endif()

function(_brv_check_info_plist template file name)
  file(READ ${file} text)
  foreach(key CFBundleExecutable CFBundleIdentifier)
    if(NOT text MATCHES "<key>${key}</key>[ \t\r\n]*<string>([^<]+)</string>")
      message(FATAL_ERROR "brv_add_extension: ${template}: has no text for ${key}, which hosts find the bundle by")
    endif()
    set(${key} ${CMAKE_MATCH_1})
  endforeach()
  if(NOT CFBundleExecutable STREQUAL name)
    message(FATAL_ERROR "brv_add_extension: ${template}: CFBundleExecutable is ${CFBundleExecutable}, but the executable "
                        "is ${name}; write @BRV_EXTENSION_NAME@ there")
  endif()
endfunction()

function(brv_add_extension)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "NAME;IDENTIFIER;INFO_PLIST" "SOURCES;LOCALIZATIONS")
  if(HEADERS IN_LIST ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "brv_add_extension: there is no list of HEADERS: what the sources mark with BRV_EXPORT is exported")
  endif()
  foreach(unknown IN LISTS ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "brv_add_extension: unknown argument ${unknown}")
  endforeach()
  foreach(needed NAME SOURCES)
    if(NOT ARG_${needed})
      message(FATAL_ERROR "brv_add_extension: ${ARG_NAME}: ${needed} is missing")
    endif()
  endforeach()
  if(NOT ARG_IDENTIFIER AND NOT ARG_INFO_PLIST)
    message(FATAL_ERROR "brv_add_extension: ${ARG_NAME}: IDENTIFIER is missing, such as org.example.${ARG_NAME}")
  endif()
  set(contents ${CMAKE_BINARY_DIR}/${ARG_NAME}.bundle/Contents)
  set(BRV_EXTENSION_NAME ${ARG_NAME})
  set(BRV_EXTENSION_IDENTIFIER ${ARG_IDENTIFIER})
  if(NOT ARG_INFO_PLIST)
    set(ARG_INFO_PLIST ${_brv_info_plist})
  endif()
  configure_file(${ARG_INFO_PLIST} ${contents}/Info.plist @ONLY)
  _brv_check_info_plist(${ARG_INFO_PLIST} ${contents}/Info.plist ${ARG_NAME})

  if(APPLE)
    add_library(${ARG_NAME} MODULE ${ARG_SOURCES})
    set(runtime_symbols ${_brv_runtime_unexported})
    target_link_options(${ARG_NAME} PRIVATE LINKER:-unexported_symbols_list,${runtime_symbols}
                        LINKER:-force_load,$<TARGET_FILE:BrvEDK::BrvEDK>)
    target_link_libraries(${ARG_NAME} PRIVATE BrvEDK::BrvEDK)
    set(suffix "")
  else()
    add_library(${ARG_NAME} SHARED ${ARG_SOURCES})
    set(runtime_symbols ${_brv_runtime_map})
    # -Bsymbolic: host and kit have functions of the same names, and each must find its own.
    target_link_options(${ARG_NAME} PRIVATE -Wl,-Bsymbolic -Wl,--version-script=${runtime_symbols})
    target_link_libraries(${ARG_NAME} PRIVATE -Wl,--whole-archive BrvEDK::BrvEDK -Wl,--no-whole-archive)
    set(suffix .so)
    add_custom_command(TARGET ${ARG_NAME} POST_BUILD
                       COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DIMAGE=$<TARGET_FILE:${ARG_NAME}> -P ${_brv_check_image}
                       VERBATIM)
  endif()
  if(BRV_MACOS)
    _brv_add_macos_executable(${ARG_NAME} ${contents})
  endif()
  set_target_properties(${ARG_NAME} PROPERTIES C_VISIBILITY_PRESET hidden CXX_VISIBILITY_PRESET hidden
                        VISIBILITY_INLINES_HIDDEN ON PREFIX "" SUFFIX "${suffix}"
                        LIBRARY_OUTPUT_DIRECTORY ${contents}/${BRV_EXECUTABLE_FOLDER}
                        LINK_DEPENDS "${runtime_symbols};${BRV_LINK_STUBS}")

  foreach(localization IN LISTS ARG_LOCALIZATIONS)
    get_filename_component(folder ${localization} NAME)
    if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${localization}/Localizable.strings)
      message(FATAL_ERROR "brv_add_extension: ${ARG_NAME}: there is no ${localization}/Localizable.strings")
    endif()
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${localization}/*)
    foreach(file IN LISTS files)
      get_filename_component(name ${file} NAME)
      if(name MATCHES "\\.strings$")
        _brv_check_strings(${file})
      endif()
      configure_file(${file} ${contents}/Resources/${folder}/${name} COPYONLY)
    endforeach()
  endforeach()
endfunction()
