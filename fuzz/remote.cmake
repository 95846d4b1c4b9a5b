# The remote command set through its OSC codec: only where OSC is built.
if(TARGET station_remote_osc)
  station_add_fuzzer(fuzz_remote SOURCES ${CMAKE_CURRENT_LIST_DIR}/remote_fuzz.cpp LIBS station_remote_osc)
  target_compile_definitions(fuzz_remote PRIVATE STATION_SAMPLES_DIR="${PROJECT_SOURCE_DIR}/samples")
endif()
