if(STATION_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# station_add_test(name SOURCES ... LIBS ...): one GoogleTest executable registered with CTest.
function(station_add_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ${T_LIBS} station_test_support GTest::gtest GTest::gtest_main)
  include(GoogleTest)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()
