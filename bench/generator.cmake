# The synthetic mine generator: a small library linked by the benchmarks, the tests and the
# command line. Included from the top-level CMakeLists.txt whether or not Google Benchmark is
# found, so that the tests and karvane-cli can always build mines.
add_library(karvane_minegen STATIC ${CMAKE_CURRENT_LIST_DIR}/mine_generator.cpp)
target_include_directories(karvane_minegen PUBLIC ${CMAKE_SOURCE_DIR})
target_link_libraries(karvane_minegen PUBLIC karvane_core)
karvane_warnings(karvane_minegen)
