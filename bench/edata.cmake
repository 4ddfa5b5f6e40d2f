# The host is the tests'.
if(TARGET RecordingHostClient)
  add_executable(bench-edata edata.cpp)
  target_link_libraries(bench-edata PRIVATE BrvEDKInternal RecordingHostClient benchmark::benchmark)
endif()
