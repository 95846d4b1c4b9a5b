station_add_fuzzer(fuzz_receive SOURCES ${CMAKE_CURRENT_LIST_DIR}/receive_fuzz.cpp LIBS station_link)
