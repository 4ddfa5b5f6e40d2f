# The kit from its sources, of this tree or of an installed kit: the library, and what says where its headers are.
get_filename_component(kit_folder ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)

# The headers that authors of extensions include; the others are the kit's own.
set(BRV_KIT_HEADERS
    BrvEDK/Source/brevixpdk.h BrvEDK/Source/convention.h BrvEDK/Source/documentrecords.h BrvEDK/Source/hostbundle.h
    BrvEDK/Source/hostprototypes.inc BrvEDK/Source/hostrecords.h BrvEDK/Source/hosttypes.h
    BrvEDK/Source/integerclasses.h BrvEDK/Source/recordtag.h BrvEDK/Source/stringids.h
    LIB/bxstring.h LIB/eu16string.h LIB/portable.h LIB/unittraits.h
    util/documentspecs.h util/keyboard.h util/moddiv.h util/pitch.h util/progress.h util/regions.h
    util/textblocks.h util/transposition.h)
list(TRANSFORM BRV_KIT_HEADERS PREPEND ${kit_folder}/)
# As in an installed kit they are included by <BrvEDK/...>.
function(brv_link_headers)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include/BrvEDK)
  foreach(header IN LISTS ARGN)
    cmake_path(GET header FILENAME name)
    file(CREATE_LINK ${header} ${PROJECT_BINARY_DIR}/include/BrvEDK/${name} SYMBOLIC)
  endforeach()
endfunction()
brv_link_headers(${BRV_KIT_HEADERS})
# The kit's own folders, for its sources.
set(BRV_KIT_FOLDERS ${kit_folder}/BrvEDK/Source ${kit_folder}/LIB ${kit_folder}/util)

foreach(folder BrvEDK LIB util)
  add_subdirectory(${kit_folder}/${folder} ${CMAKE_CURRENT_BINARY_DIR}/${folder})
endforeach()
