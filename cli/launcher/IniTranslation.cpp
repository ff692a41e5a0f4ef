#include "IniTranslation.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace launcher {
namespace {

bool SameKey(const std::string& one, const std::string& other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) ==
               std::tolower(static_cast<unsigned char>(b));
    });
}

}  // namespace

std::vector<IniLine> ReadIni(const std::string& text)
{
    std::vector<IniLine> lines;
    std::istringstream stream(text);
    std::string line;
    while (std::getline(stream, line)) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        const std::size_t sign = line.find('=');
        if (sign == std::string::npos) {
            lines.push_back({line, {}, false});
        } else {
            lines.push_back({line.substr(0, sign), line.substr(sign + 1), true});
        }
    }
    return lines;
}

std::string TextOf(const std::vector<IniLine>& lines)
{
    std::string text;
    for (const IniLine& line : lines) {
        text += line.key;
        if (line.hasValue) {
            text += '=' + line.value;
        }
        text += '\n';
    }
    return text;
}

std::vector<IniLine> Translated(std::vector<IniLine> lines, const PathReplacement& paths)
{
    for (IniLine& line : lines) {
        if (SameKey(line.key, "Output_File_Type") && SameKey(line.value, "S")) {
            line.value = "B";
        } else if (SameKey(line.key, "Input_File_Name") || SameKey(line.key, "Library_Path")) {
            line.value = paths.reading(line.value);
        } else if (SameKey(line.key, "Output_File_Name")) {
            line.value = paths.writing(line.value);
        }
    }
    return lines;
}

std::string ValueOf(const std::vector<IniLine>& lines, const std::string& key)
{
    std::string value;
    for (const IniLine& line : lines) {
        if (SameKey(line.key, key)) {
            value = line.value;
        }
    }
    return value;
}

}  // namespace launcher
