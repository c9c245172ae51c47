vellora_bench(bench_contrastgrid SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_contrastgrid.cpp ${CMAKE_CURRENT_LIST_DIR}/benchhome.cpp LIBS vellora_ui)
