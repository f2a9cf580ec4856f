target_sources(quillo_shell PRIVATE
  app/quillo_procs.cpp
)
# The number of the program, for the about box.
target_link_libraries(quillo_shell PRIVATE quillo_version)
