// Owns the precompiled header of the test suites.
