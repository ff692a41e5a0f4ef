#pragma once

#include "ExportedProperties.h"
#include "GltfFile.h"
#include "GltfImages.h"
#include "JsonSplice.h"

namespace studio {

[[nodiscard]] Json JsonOf(const QJsonObject& object);
[[nodiscard]] QJsonObject QtJsonOf(const Json& object);

/// A material of a document on its way from what was read to what it is now. Only what does not
/// read as wanted is written, in the form that the document has for it.
class GltfMaterialPatch {
public:
    /// All of it outlives this.
    GltfMaterialPatch(Json& material, const GltfFile& file, GltfImages& images);

    void Apply(const NamedMaterial& was, const NamedMaterial& now, Report& report);

private:
    [[nodiscard]] CorvexDB::udtMaterial Read() const;
    [[nodiscard]] bool IsGlossy() const;
    [[nodiscard]] Json* Extension(const char* name);
    void Write(const CorvexDB::udtMaterial& want);
    void PutColour();
    void PutGlow(bool glowed);
    void PutShine();
    void PutOpacity();
    void PutAlphaMode();
    void PutCoat();
    void PutTexture(bool any);
    void PutPlacement();
    [[nodiscard]] std::vector<Json*> BaseTextures();

    Json& m_material;
    const GltfFile& m_file;
    GltfImages& m_images;
    Json m_written;  ///< as the format's writer has it
};

}  // namespace studio
