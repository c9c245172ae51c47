vellora_bench(bench_average SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_average.cpp)
