# Start-up of the whole program against a bare one that shows the same files.
add_executable(bare_notes WIN32 ${CMAKE_CURRENT_LIST_DIR}/bare_notes.cpp)
target_link_libraries(bare_notes PRIVATE quillo_shell)
add_executable(startup_bench ${CMAKE_CURRENT_LIST_DIR}/startup_bench.cpp)
target_link_libraries(startup_bench PRIVATE quillo_shell)
add_dependencies(startup_bench quillo bare_notes)
