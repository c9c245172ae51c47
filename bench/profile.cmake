vellora_bench(bench_profile SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_profile.cpp)
