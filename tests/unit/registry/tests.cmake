target_sources(quillo_core_tests PRIVATE
  unit/registry/tessel_registry_test.cpp
)
