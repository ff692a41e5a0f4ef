#pragma once

#include <string>
#include <vector>

namespace CorvexDB {

/// A program to start, without a shell. The text is what a person would read; the parts beside it
/// are what is started, because a path in the text is not quoted whatever it holds.
struct CommandLine {
    std::string text;
    std::string program;
    std::vector<std::string> arguments;
    std::string workingFolder;  ///< empty = the current one
};

}  // namespace CorvexDB
