add_executable(bench-edata edata.cpp)
brv_compile(bench-edata)
target_link_libraries(bench-edata PRIVATE BrvEDKInternal TestHost benchmark::benchmark)
