station_add_fuzzer(fuzz_definition SOURCES ${CMAKE_CURRENT_LIST_DIR}/definition_fuzz.cpp LIBS station_camtype)
station_add_fuzzer(fuzz_setup SOURCES ${CMAKE_CURRENT_LIST_DIR}/setup_fuzz.cpp LIBS station_setupfile)
