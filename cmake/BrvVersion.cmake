# brv_write_version(<target> <template> <output>)
#
# A target that fills the version of the project, with the commit, into a source file. Each build looks it up, and only one whose
# version is another writes and compiles that file again.
set(BRV_WRITE_VERSION ${CMAKE_CURRENT_LIST_DIR}/BrvWriteVersion.cmake)

function(brv_write_version target template output)
  add_custom_target(${target}
    COMMAND ${CMAKE_COMMAND} -DVERSION=${PROJECT_VERSION} -DSOURCE=${PROJECT_SOURCE_DIR} -DTEMPLATE=${template}
            -DOUTPUT=${output} -P ${BRV_WRITE_VERSION}
    BYPRODUCTS ${output} COMMENT "Looking up the version" VERBATIM)
endfunction()
