# Whether the executable of an extension has the entry points: cmake -DNM=... -DIMAGE=... -P BrvCheckImage.cmake. The kit calls each of
# them, so that one which no source defines is undefined. A definition without the declaration in convention.h is
# another function.
execute_process(COMMAND ${NM} -D --undefined-only ${IMAGE} OUTPUT_VARIABLE undefined RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${IMAGE}: ${NM} cannot read it")
endif()
string(REGEX MATCHALL "BrevixExtension[A-Za-z0-9_]+" missing "${undefined}")
if(missing)
  list(JOIN missing ", " missing)
  get_filename_component(name ${IMAGE} NAME_WE)
  message(FATAL_ERROR "${name}: exports no ${missing}: define it in a source that includes <BrvEDK/convention.h>")
endif()
