vellora_bench(bench_imagefile SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_imagefile.cpp)
