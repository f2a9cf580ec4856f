# Runs of the program, and work by hand with the real pointer and keyboard.
add_library(quillo_bench STATIC ${CMAKE_CURRENT_LIST_DIR}/hand_actions.cpp ${CMAKE_CURRENT_LIST_DIR}/program_run.cpp
  ${PROJECT_SOURCE_DIR}/tests/e2e/harness/input.cpp)
target_include_directories(quillo_bench PUBLIC ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tests/e2e)
target_link_libraries(quillo_bench PUBLIC quillo_windows)
quillo_test_code(quillo_bench)

# A bare program that shows the same files.
add_executable(bare_notes WIN32 ${CMAKE_CURRENT_LIST_DIR}/bare_notes.cpp)
target_link_libraries(bare_notes PRIVATE quillo_windows)

# The whole program: its start-up compared with the bare one; with 50 notes, saving them all compared with plain writes, its
# idle cost and its memory; what it does while a user works.
foreach(bench startup save idle memory hand)
  add_executable(${bench}_bench ${CMAKE_CURRENT_LIST_DIR}/${bench}_bench.cpp)
  target_link_libraries(${bench}_bench PRIVATE quillo_bench)
  quillo_test_code(${bench}_bench)
  add_dependencies(${bench}_bench quillo bare_notes)
endforeach()
target_link_libraries(memory_bench PRIVATE psapi)
