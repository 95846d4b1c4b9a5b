station_add_benchmark(bench_sim SOURCES ${CMAKE_CURRENT_LIST_DIR}/sim_bench.cpp LIBS station_link station_sim)
