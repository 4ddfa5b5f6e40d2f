# Compares the interface of a library with the one that a file has, and lists what is new in it. What is gone or has
# changed is an error.
#   cmake -DABIDIFF=<abidiff> -DSUPPRESSIONS=<file> -DKEPT=<file> -DLIBRARY=<library> -P compare.cmake
execute_process(COMMAND ${ABIDIFF} --suppressions ${SUPPRESSIONS} ${KEPT} ${LIBRARY})
execute_process(COMMAND ${ABIDIFF} --suppressions ${SUPPRESSIONS} --no-added-syms ${KEPT} ${LIBRARY}
                OUTPUT_QUIET RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "what ${KEPT} has is gone or has changed: see above")
endif()
