target_sources(quillo_core PRIVATE
)
