#include "studio/interchange/gltf/GltfSurface.h"
#include "tests/interchange/fuzz/FuzzEntry.h"

#include <assimp/GltfMaterial.h>
#include <assimp/material.h>

#include <cstring>
#include <vector>

namespace {

/// What the model importer hands on of a file's material: this many numbers, or a text.
struct HandedOn {
    const char* key;
    unsigned int type;
    unsigned int index;
    std::size_t numbers;
};
constexpr std::size_t kText = 0;
constexpr HandedOn kHandedOn[] = {
    {AI_MATKEY_BASE_COLOR, 4},
    {AI_MATKEY_COLOR_DIFFUSE, 4},
    {AI_MATKEY_COLOR_SPECULAR, 4},
    {AI_MATKEY_COLOR_EMISSIVE, 4},
    {AI_MATKEY_OPACITY, 1},
    {AI_MATKEY_METALLIC_FACTOR, 1},
    {AI_MATKEY_ROUGHNESS_FACTOR, 1},
    {AI_MATKEY_GLOSSINESS_FACTOR, 1},
    {AI_MATKEY_CLEARCOAT_FACTOR, 1},
    {AI_MATKEY_CLEARCOAT_ROUGHNESS_FACTOR, 1},
    {AI_MATKEY_TRANSMISSION_FACTOR, 1},
    {AI_MATKEY_GLTF_ALPHACUTOFF, 1},
    {AI_MATKEY_GLTF_ALPHAMODE, kText},
    {AI_MATKEY_TEXTURE(aiTextureType_BASE_COLOR, 0), kText},
    {AI_MATKEY_TEXTURE(aiTextureType_DIFFUSE, 0), kText},
    {AI_MATKEY_TEXTURE(aiTextureType_EMISSIVE, 0), kText},
    {AI_MATKEY_UVTRANSFORM(aiTextureType_BASE_COLOR, 0), 5},
};

/// Takes the next bytes, fewer at the end.
template <typename Value>
std::vector<Value> Next(std::span<const std::byte>& bytes, std::size_t count)
{
    const auto taken = bytes.first(std::min(bytes.size(), count * sizeof(Value)));
    std::vector<Value> values(count);
    if (!taken.empty()) {
        std::memcpy(values.data(), taken.data(), taken.size());
    }
    bytes = bytes.subspan(taken.size());
    return values;
}

void AddNext(std::span<const std::byte>& bytes, aiMaterial& material)
{
    const auto choice = Next<unsigned char>(bytes, 2);
    const HandedOn& row = kHandedOn[choice[0] % std::size(kHandedOn)];
    if (row.numbers == kText) {
        const auto letters = Next<char>(bytes, choice[1]);
        const aiString text(std::string(letters.begin(), letters.end()));
        material.AddProperty(&text, row.key, row.type, row.index);
    } else {
        const auto numbers = Next<float>(bytes, row.numbers);
        material.AddProperty(numbers.data(), static_cast<unsigned int>(numbers.size()), row.key,
                             row.type, row.index);
    }
}

}  // namespace

void FuzzGltf(std::span<const std::byte> bytes)
{
    aiMaterial source;
    while (!bytes.empty()) {
        AddNext(bytes, source);
    }
    FuzzWith([&](studio::Report& report) {
        const studio::MaterialNotes notes(report, "one");
        return std::vector{
            studio::NamedMaterial{"one", studio::MaterialOfGltf(source, "/nowhere", notes)}};
    });
}
