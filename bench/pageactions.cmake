vellora_bench(bench_pageactions SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_pageactions.cpp ${CMAKE_CURRENT_LIST_DIR}/benchhome.cpp ${CMAKE_CURRENT_LIST_DIR}/benchpictures.cpp LIBS vellora_ui)
