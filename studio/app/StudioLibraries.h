#pragma once

#include "host/CorvexDB.h"

namespace studio {

/// Library files are not read by this studio yet: nothing can be opened, so nothing is ever listed.
class StudioMaterialLibrary : public CorvexDB::MaterialLibrary {
public:
    CorvexDB::LibraryContent Open(const std::string& path) override;
    CorvexDB::udtMaterial MaterialAt(std::int32_t index) override;
    void AddMaterialToLibrary(const CorvexDB::udtMaterial& material) override;
    void DeleteMaterialFromLibrary(std::int32_t index) override;
};

class EmptyTextureCollection : public CorvexDB::TextureCollection {
public:
    std::int32_t Count() override { return 0; }
    std::string FileAt(std::int32_t index) override;
};

class StudioTextureLibrary : public CorvexDB::TextureLibrary {
public:
    CorvexDB::LibraryContent Open(const std::string& path) override;
    CorvexDB::TextureCollection& Textures() override { return m_textures; }
    std::string SelectedLibraryTexture(std::int32_t index) override;
    void AddTextureToLibrary(const std::string& file) override;
    void DeleteTextureFromLibrary(std::int32_t index) override;

private:
    EmptyTextureCollection m_textures;
};

}  // namespace studio
