vellora_bench(bench_findcolour SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_findcolour.cpp LIBS vellora_ui)
