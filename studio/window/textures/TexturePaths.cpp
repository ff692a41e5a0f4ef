#include "TexturePaths.h"

#include <CorvexMaterial/TextureLayers.h>

#include <filesystem>
#include <map>
#include <set>

namespace studio {
namespace {

using CorvexMaterial::kTextureLayers;
using FoundPaths = std::map<std::string, std::string>;

bool IsFile(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(std::u8string(path.begin(), path.end()), error);
}

FoundPaths ByMissingPath(const std::vector<TextureReplacement>& replacements)
{
    FoundPaths found;
    for (const TextureReplacement& replacement : replacements) {
        if (!replacement.found.empty()) {
            found.emplace(replacement.missing, replacement.found);
        }
    }
    return found;
}

}  // namespace

std::vector<std::string> TexturePathsOf(const ShapeList& shapes)
{
    std::vector<std::string> paths;
    std::set<std::string> seen;
    for (const auto& shape : shapes) {
        for (const auto& layer : kTextureLayers) {
            const std::string& path = shape->Material().Textures.*layer.file;
            if (!path.empty() && seen.insert(path).second) {
                paths.push_back(path);
            }
        }
    }
    return paths;
}

std::vector<std::string> MissingTexturePaths(const ShapeList& shapes)
{
    std::vector<std::string> paths = TexturePathsOf(shapes);
    std::erase_if(paths, IsFile);
    return paths;
}

std::vector<ShapeChange> TextureChanges(const ShapeList& shapes,
                                        const std::vector<TextureReplacement>& replacements)
{
    const FoundPaths found = ByMissingPath(replacements);
    return ChangesBy(
        [&found](CorvexDB::udtMaterial& material) {
            for (const auto& layer : kTextureLayers) {
                std::string& path = material.Textures.*layer.file;
                if (const auto row = found.find(path); row != found.end()) {
                    path = row->second;
                }
            }
        },
        shapes);
}

}  // namespace studio
