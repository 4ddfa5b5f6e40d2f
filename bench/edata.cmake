# The host is the tests'.
if(TARGET RecordingHostClient)
  add_executable(bench-edata edata.cpp)
  brv_compile(bench-edata)
  target_link_libraries(bench-edata PRIVATE BrvEDKInternal RecordingHostClient benchmark::benchmark)
endif()
