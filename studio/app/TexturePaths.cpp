#include "studio/app/TexturePaths.h"

#include "textures/TextureLayers.h"

#include <filesystem>
#include <map>
#include <set>

namespace studio {
namespace {

using CorvexMaterial::kTextureLayers;
using CorvexSG::GatheredMaterial;
using SharedMaterial = std::shared_ptr<const GatheredMaterial>;
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

/// The material itself when it has none of the missing paths.
SharedMaterial WithFoundPaths(const SharedMaterial& before, const FoundPaths& found)
{
    auto after = std::make_shared<GatheredMaterial>(*before);
    for (const auto& layer : kTextureLayers) {
        std::string& path = after->material.Textures.*layer.file;
        if (const auto row = found.find(path); row != found.end()) {
            path = row->second;
        }
    }
    return after->material == before->material ? before : after;
}

}  // namespace

std::vector<std::string> MissingTexturePaths(const ShapeList& shapes)
{
    std::vector<std::string> missing;
    std::set<std::string> seen;
    for (const auto& shape : shapes) {
        for (const auto& layer : kTextureLayers) {
            const std::string& path = shape->Material().Textures.*layer.file;
            if (!path.empty() && seen.insert(path).second && !IsFile(path)) {
                missing.push_back(path);
            }
        }
    }
    return missing;
}

std::vector<ShapeChange> TextureChanges(const ShapeList& shapes,
                                        const std::vector<TextureReplacement>& replacements)
{
    const FoundPaths found = ByMissingPath(replacements);
    std::map<SharedMaterial, SharedMaterial> changed;
    std::vector<ShapeChange> changes;
    for (const auto& shape : shapes) {
        const AppliedMaterial& before = shape->Applied();
        SharedMaterial& after = changed[before.gathered];
        if (after == nullptr) {
            after = WithFoundPaths(before.gathered, found);
        }
        if (after != before.gathered) {
            changes.push_back({shape, before, {after, before.coordinates}});
        }
    }
    return changes;
}

}  // namespace studio
