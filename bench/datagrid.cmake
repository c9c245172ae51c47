vellora_bench(bench_datagrid SOURCES bench_datagrid.cpp LIBS vellora_ui)
