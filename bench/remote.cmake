# The remote command set through its TCP transport: needs the desktop program's servers.
if(TARGET station_ui_remote)
  station_add_benchmark(bench_remote SOURCES ${CMAKE_CURRENT_LIST_DIR}/remote_bench.cpp LIBS station_ui_remote)
  target_compile_definitions(bench_remote PRIVATE STATION_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples")
endif()
