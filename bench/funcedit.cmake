station_add_benchmark(bench_funcedit SOURCES ${CMAKE_CURRENT_LIST_DIR}/funcedit_bench.cpp LIBS station_funcedit)
