add_executable(bench-cleantgf cleantgf.cpp)
target_link_libraries(bench-cleantgf PRIVATE BrvEDKInternal benchmark::benchmark)
