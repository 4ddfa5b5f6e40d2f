add_executable(bench-cleantgf cleantgf.cpp)
brv_compile(bench-cleantgf)
target_link_libraries(bench-cleantgf PRIVATE BrvEDKInternal benchmark::benchmark)
