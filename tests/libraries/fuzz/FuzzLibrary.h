#pragma once

#include <string>

/// Opens whatever is at the path as a library of either kind and does everything with it that the
/// studio does; being refused is fine. Ends the process when a promise is broken.
void FuzzLibrary(const std::string& path);
