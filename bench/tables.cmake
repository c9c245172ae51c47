vellora_bench(bench_tables SOURCES bench_tables.cpp)
