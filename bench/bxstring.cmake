find_package(PkgConfig REQUIRED)
pkg_check_modules(BENCH_ICU REQUIRED IMPORTED_TARGET icu-uc)
add_executable(bench-bxstring bxstring.cpp)
target_link_libraries(bench-bxstring PRIVATE BrvEDKInternal PkgConfig::BENCH_ICU benchmark::benchmark)
