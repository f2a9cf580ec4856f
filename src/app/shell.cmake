target_sources(quillo_shell PRIVATE
  app/quillo_procs.cpp
)
