# How the cross build archives and links: the linker is called as itself, not by way of the compiler.
get_filename_component(zig_folder ${BRV_ZIG} DIRECTORY)
foreach(language C CXX)
  set(CMAKE_${language}_ARCHIVE_CREATE "<CMAKE_AR> ar qcD <TARGET> <OBJECTS>")
  set(CMAKE_${language}_ARCHIVE_APPEND "<CMAKE_AR> ar qD <TARGET> <OBJECTS>")
  set(CMAKE_${language}_ARCHIVE_FINISH "<CMAKE_RANLIB> ranlib <TARGET>")
  set(CMAKE_${language}_CREATE_SHARED_MODULE
      "\"${CMAKE_COMMAND}\" \"-DNM=${BRV_NM}\" -DSTUB=<OBJECT_DIR>/libc++.tbd -P \"${CMAKE_CURRENT_LIST_DIR}/cxxstub.cmake\" -- <OBJECTS> <LINK_LIBRARIES>")
  string(CONCAT link
         "\"${BRV_LD64}\" -bundle -arch ${BRV_MACOS_ARCHITECTURE} -platform_version macos 11.0 11.0 -adhoc_codesign"
         " -syslibroot \"${CMAKE_CURRENT_LIST_DIR}/stubs\""
         " <LINK_FLAGS> -o <TARGET> <OBJECTS> <LINK_LIBRARIES> <OBJECT_DIR>/libc++.tbd"
         " \"${zig_folder}/lib/libc/darwin/libSystem.11.tbd\"")
  list(APPEND CMAKE_${language}_CREATE_SHARED_MODULE "${link}")
  set(CMAKE_${language}_VERBOSE_FLAG "-v")
  set(CMAKE_${language}_LINKER_WRAPPER_FLAG "")
  set(CMAKE_${language}_LINKER_WRAPPER_FLAG_SEP "")
endforeach()
