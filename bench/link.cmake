station_add_benchmark(bench_link SOURCES ${CMAKE_CURRENT_LIST_DIR}/link_bench.cpp LIBS station_link)
