target_sources(quillo_core_tests PRIVATE
  unit/app/os_facts_test.cpp
)
