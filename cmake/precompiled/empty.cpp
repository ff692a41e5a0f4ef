// Only its precompiled header is wanted.
