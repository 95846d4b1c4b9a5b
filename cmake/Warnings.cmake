# Every target of the project compiles warning-free on GCC and Clang.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports false -Wrestrict overlaps inside libstdc++'s std::string assignment at -O2.
  add_compile_options(-Wno-restrict)
endif()
