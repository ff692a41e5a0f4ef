#pragma once

#include <map>
#include <string>
#include <vector>

namespace StudioRaytraceTest {

/// One request of a RIB with what follows it.
struct RibRequest {
    std::string name;
    std::vector<std::string> strings;
    std::vector<std::vector<float>> arrays;
    std::vector<float> numbers;
};

struct RibFile {
    std::vector<RibRequest> requests;
    std::string error;  ///< what is wrong with the text; empty when nothing is
};

/// Reads what a renderer would: strings in double quotes with backslashes, arrays in brackets,
/// numbers, comments, and blocks that begin and end in order.
[[nodiscard]] RibFile ReadRib(const std::string& text);

}  // namespace StudioRaytraceTest
