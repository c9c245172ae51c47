vellora_bench(bench_view SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_view.cpp ${CMAKE_CURRENT_LIST_DIR}/benchhome.cpp ${CMAKE_CURRENT_LIST_DIR}/benchpictures.cpp LIBS vellora_ui)
