include_guard(GLOBAL)
