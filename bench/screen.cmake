vellora_bench(bench_screen SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_screen.cpp ${CMAKE_CURRENT_LIST_DIR}/benchhome.cpp ${CMAKE_CURRENT_LIST_DIR}/benchpictures.cpp LIBS vellora_ui)
