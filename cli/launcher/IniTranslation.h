#pragma once

#include <functional>
#include <string>
#include <vector>

namespace launcher {

/// One line of a settings file, `Key=value`; a line of another form is all key.
struct IniLine {
    std::string key;
    std::string value;
    bool hasValue = false;
};

/// Line ends of either kind.
[[nodiscard]] std::vector<IniLine> ReadIni(const std::string& text);
[[nodiscard]] std::string TextOf(const std::vector<IniLine>& lines);

/// How paths are replaced by others.
struct PathReplacement {
    std::function<std::string(const std::string&)> reading;
    std::function<std::string(const std::string&)> writing;
};

/// What POV-Ray on Unix understands: the system's own picture type, S, is its bitmap type B, and
/// the paths are the replaced ones.
[[nodiscard]] std::vector<IniLine> Translated(std::vector<IniLine> lines,
                                              const PathReplacement& paths);

/// The value of the last line with this key; empty when there is none. Keys have no case.
[[nodiscard]] std::string ValueOf(const std::vector<IniLine>& lines, const std::string& key);

}  // namespace launcher
