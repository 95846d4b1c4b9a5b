station_add_benchmark(bench_camtype SOURCES ${CMAKE_CURRENT_LIST_DIR}/camtype_bench.cpp LIBS station_setupfile)
