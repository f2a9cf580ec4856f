target_sources(quillo_windows PRIVATE
  app/quillo_procs.cpp
)
# The version of the program, for the about box.
target_link_libraries(quillo_windows PRIVATE quillo_version)
