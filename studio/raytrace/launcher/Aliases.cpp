#include "studio/raytrace/launcher/Aliases.h"

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

Aliases::~Aliases()
{
    std::error_code ignored;
    for (const std::string& link : m_links) {
        fs::remove(link, ignored);
    }
    for (const auto& [alias, wanted] : m_written) {
        fs::remove(alias, ignored);
    }
}

std::string Aliases::NextName(const std::string& path)
{
    const std::string number = std::to_string(m_links.size() + m_written.size());
    const std::string extension = fs::path(path).extension().string();
    return m_prefix + '-' + number + (IsPlain(extension) ? extension : std::string());
}

std::string Aliases::ForReading(const std::string& path)
{
    if (IsPlain(path)) {
        return path;
    }
    const std::string name = NextName(path);
    fs::create_symlink(fs::absolute(path), name);
    m_links.push_back(name);
    return name;
}

std::string Aliases::ForWriting(const std::string& path)
{
    if (IsPlain(path)) {
        return path;
    }
    m_written.emplace_back(NextName(path), path);
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
