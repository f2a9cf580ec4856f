# The codec against memcpy, and the string builder against std::u16string. They print figures; no test asserts on them.
foreach(bench codec builder)
  add_executable(${bench}_bench ${CMAKE_CURRENT_LIST_DIR}/${bench}_bench.cpp)
  target_include_directories(${bench}_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${bench}_bench PRIVATE quillo_core)
endforeach()

# Reading a reminder phrase; on Windows with the platform's own conversions.
add_executable(phrase_bench ${CMAKE_CURRENT_LIST_DIR}/phrase_bench.cpp)
target_include_directories(phrase_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(phrase_bench PRIVATE quillo_core $<IF:$<BOOL:${WIN32}>,quillo_windows,quillo_testing>)
