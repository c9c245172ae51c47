vellora_bench(bench_climatch SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_climatch.cpp)
target_compile_definitions(bench_climatch PRIVATE VELLORA_CLI_PATH="$<TARGET_FILE:vellora-cli>")
add_dependencies(bench_climatch vellora-cli)
