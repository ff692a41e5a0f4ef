#include "Formats.h"

#include "AssimpReader.h"
#include "DocumentFile.h"
#include "GltfImport.h"
#include "GltfMaterials.h"
#include "GltfPatch.h"
#include "MtlMaterials.h"
#include "MtlxMaterials.h"
#include "ObjImport.h"
#include "ObjPatch.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace studio {
namespace {

constexpr std::array kFormats{
    Format{"mtl", QT_TRANSLATE_NOOP("Studio", "Wavefront MTL"), ReadMtl, MtlOf, false},
    Format{"obj", QT_TRANSLATE_NOOP("Studio", "Wavefront OBJ"), ReadObj, nullptr, true,
           WriteObjScene, false, PatchOfObj},
    Format{"gltf", QT_TRANSLATE_NOOP("Studio", "glTF"), ReadGltf, GltfOf, true, WriteGltfScene,
           false, PatchOfGltf},
    Format{"glb", QT_TRANSLATE_NOOP("Studio", "glTF binary"), ReadGltf, nullptr, true,
           WriteGlbScene, true, PatchOfGltf},
    Format{"mtlx", QT_TRANSLATE_NOOP("Studio", "MaterialX"), ReadMtlx, MtlxOf, false},
    Format{"3ds", QT_TRANSLATE_NOOP("Studio", "3DS"), ReadWithAssimp, nullptr, true},
    Format{"dae", QT_TRANSLATE_NOOP("Studio", "Collada"), ReadWithAssimp, nullptr, true},
    Format{"fbx", QT_TRANSLATE_NOOP("Studio", "FBX"), ReadWithAssimp, nullptr, true},
    Format{"off", QT_TRANSLATE_NOOP("Studio", "OFF"), ReadWithAssimp, nullptr, true},
    Format{"ply", QT_TRANSLATE_NOOP("Studio", "PLY"), ReadWithAssimp, nullptr, true},
    Format{"stl", QT_TRANSLATE_NOOP("Studio", "STL"), ReadWithAssimp, nullptr, true},
    Format{"x", QT_TRANSLATE_NOOP("Studio", "X"), ReadWithAssimp, nullptr, true},
};

}  // namespace

std::span<const Format> Formats()
{
    return kFormats;
}

const Format* FormatOf(const std::string& path)
{
    const QString suffix = QFileInfo(QString::fromStdString(path)).suffix().toLower();
    const auto* format = std::ranges::find_if(
        kFormats, [&](const Format& row) { return suffix == QLatin1String(row.suffix); });
    return format == kFormats.end() ? nullptr : format;
}

ImportedModel ReadForeignFile(const std::string& path)
{
    const Format* format = FormatOf(path);
    return format == nullptr ? ReadWithAssimp(path) : format->read(path);
}

ImportedModel ReadModel(const std::string& path)
{
    ImportedModel model = ReadForeignFile(path);
    const auto hasSurface = [](const ImportedMesh& mesh) { return !mesh.mesh->indices.empty(); };
    if (model.shapes.empty() || std::ranges::none_of(model.meshes, hasSurface)) {
        RefuseDocument(path, "the file holds no surface");
    }
    return model;
}

}  // namespace studio
