vellora_bench(bench_colourvision SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_colourvision.cpp ${CMAKE_CURRENT_LIST_DIR}/benchhome.cpp ${CMAKE_CURRENT_LIST_DIR}/benchpictures.cpp LIBS vellora_ui)
