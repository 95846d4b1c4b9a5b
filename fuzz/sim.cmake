station_add_fuzzer(fuzz_sim_receive SOURCES ${CMAKE_CURRENT_LIST_DIR}/sim_receive_fuzz.cpp LIBS station_sim)
