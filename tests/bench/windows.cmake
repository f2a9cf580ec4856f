# Start-up of the whole program, compared with a bare one that shows the same files.
add_executable(bare_notes WIN32 ${CMAKE_CURRENT_LIST_DIR}/bare_notes.cpp)
target_link_libraries(bare_notes PRIVATE quillo_windows)
add_executable(startup_bench ${CMAKE_CURRENT_LIST_DIR}/startup_bench.cpp ${CMAKE_CURRENT_LIST_DIR}/program_run.cpp)
target_include_directories(startup_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(startup_bench PRIVATE quillo_windows)
add_dependencies(startup_bench quillo bare_notes)

# The running program with 50 notes: saving them all compared with plain writes, its idle cost, its memory.
foreach(bench save idle memory)
  add_executable(${bench}_bench ${CMAKE_CURRENT_LIST_DIR}/${bench}_bench.cpp ${CMAKE_CURRENT_LIST_DIR}/program_run.cpp)
  target_include_directories(${bench}_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${bench}_bench PRIVATE quillo_windows)
  add_dependencies(${bench}_bench quillo)
endforeach()
target_link_libraries(memory_bench PRIVATE psapi)
add_dependencies(memory_bench bare_notes)

# Work by hand, with the real pointer and keyboard.
add_executable(hand_bench ${CMAKE_CURRENT_LIST_DIR}/hand_bench.cpp ${CMAKE_CURRENT_LIST_DIR}/hand_actions.cpp
  ${CMAKE_CURRENT_LIST_DIR}/program_run.cpp ${PROJECT_SOURCE_DIR}/tests/e2e/harness/input.cpp)
target_include_directories(hand_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tests/e2e)
target_link_libraries(hand_bench PRIVATE quillo_windows)
add_dependencies(hand_bench quillo bare_notes)
