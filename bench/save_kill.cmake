# A tool run by hand: saves killed at random (see save_kill.cpp); not a benchmark, not a test.
add_executable(save_kill ${CMAKE_CURRENT_LIST_DIR}/save_kill.cpp)
target_link_libraries(save_kill PRIVATE station_setupfile)
