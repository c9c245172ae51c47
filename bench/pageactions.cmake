vellora_bench(bench_pageactions SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_pageactions.cpp LIBS vellora_ui)
