vellora_bench(bench_spread SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_spread.cpp)
