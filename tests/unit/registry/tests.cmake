target_sources(quillo_core_tests PRIVATE
)
