target_sources(quillo_core PRIVATE
  registry/tessel_registry.cpp
)
