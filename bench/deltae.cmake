vellora_bench(bench_deltae SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_deltae.cpp)
