#include "Aliases.h"

#include <algorithm>
#include <filesystem>

namespace launcher {

namespace fs = std::filesystem;

bool IsPlain(const std::string& path)
{
    return std::all_of(path.begin(), path.end(), [](char letter) {
        const bool letterOrDigit = (letter >= 'a' && letter <= 'z') ||
                                   (letter >= 'A' && letter <= 'Z') ||
                                   (letter >= '0' && letter <= '9');
        return letterOrDigit ||
               std::string_view(" /._-~+,@").find(letter) != std::string_view::npos;
    });
}

std::string Aliases::NextName(const std::string& path)
{
    const std::string extension = fs::path(path).extension().string();
    return "alias-" + std::to_string(m_names++) + (IsPlain(extension) ? extension : std::string());
}

std::string Aliases::ForReading(const std::string& path)
{
    const fs::path whole = m_base / path;
    if (path.empty() || IsPlain(whole.string())) {
        return path.empty() ? path : whole.string();
    }
    std::string name = NextName(path);
    fs::create_symlink(whole, name);
    return name;
}

std::string Aliases::ForWriting(const std::string& path)
{
    m_written.emplace_back(NextName(path), m_base / path);
    return m_written.back().first;
}

void Aliases::Deliver()
{
    for (const auto& [alias, wanted] : m_written) {
        if (fs::exists(alias)) {
            fs::rename(alias, wanted);
        }
    }
}

}  // namespace launcher
