#include "tests/support/RecordingData.h"

namespace CorvexTest {
namespace {

/// A host throws for a position that is not there.
template <typename Item>
const Item& ItemAt(const std::vector<Item>& items, std::int32_t index)
{
    return items.at(static_cast<std::size_t>(index));
}

template <typename Item>
void Erase(std::vector<Item>& items, std::int32_t index)
{
    items.erase(items.begin() + (&ItemAt(items, index) - items.data()));
}

template <typename Item>
std::int32_t CountOf(const std::vector<Item>& items)
{
    return static_cast<std::int32_t>(items.size());
}

}  // namespace

void RecordingApplicationState::OpenWebSite(CorvexDB::WebSite site)
{
    m_log.Enter("ApplicationState.OpenWebSite", std::to_string(static_cast<int>(site)));
}

void RecordingMaterialLibrary::CreateLibrary(const std::string& path)
{
    m_log.Enter("MaterialLibrary.CreateLibrary", path);
    if (creating) {
        creating(path);
    }
}

CorvexDB::LibraryContent RecordingMaterialLibrary::Open(const std::string& path)
{
    m_log.Enter("MaterialLibrary.Open", path);
    opening();
    return {CountOf(materials)};
}

CorvexDB::udtMaterial RecordingMaterialLibrary::MaterialAt(std::int32_t index)
{
    m_log.Enter("MaterialLibrary.MaterialAt", std::to_string(index));
    return ItemAt(materials, index);
}

void RecordingMaterialLibrary::AddMaterialToLibrary(const CorvexDB::udtMaterial& material)
{
    m_log.Enter("MaterialLibrary.AddMaterialToLibrary");
    materials.push_back(material);
}

void RecordingMaterialLibrary::DeleteMaterialFromLibrary(std::int32_t index)
{
    m_log.Enter("MaterialLibrary.DeleteMaterialFromLibrary", std::to_string(index));
    Erase(materials, index);
}

void RecordingTextureLibrary::CreateLibrary(const std::string& path)
{
    m_log.Enter("TextureLibrary.CreateLibrary", path);
    if (creating) {
        creating(path);
    }
}

CorvexDB::LibraryContent RecordingTextureLibrary::Open(const std::string& path)
{
    m_log.Enter("TextureLibrary.Open", path);
    opening();
    return {CountOf(files)};
}

CorvexDB::TextureCollection& RecordingTextureLibrary::Textures()
{
    m_log.Enter("TextureLibrary.Textures");
    return *this;
}

std::string RecordingTextureLibrary::SelectedLibraryTexture(std::int32_t index)
{
    m_log.Enter("TextureLibrary.SelectedLibraryTexture", std::to_string(index));
    return ItemAt(files, index);
}

void RecordingTextureLibrary::AddTextureToLibrary(const std::string& file)
{
    m_log.Enter("TextureLibrary.AddTextureToLibrary", file);
    files.push_back(file);
}

void RecordingTextureLibrary::DeleteTextureFromLibrary(std::int32_t index)
{
    m_log.Enter("TextureLibrary.DeleteTextureFromLibrary", std::to_string(index));
    Erase(files, index);
}

std::int32_t RecordingTextureLibrary::Count()
{
    return m_log.Answer("TextureCollection.Count", CountOf(files));
}

std::string RecordingTextureLibrary::FileAt(std::int32_t index)
{
    m_log.Enter("TextureCollection.FileAt", std::to_string(index));
    return ItemAt(files, index);
}

std::string
RecordingRaytrace::CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    m_log.Enter("RaytraceServices.CombinedAttributes");
    return "combined, brilliance " + std::to_string(attributes.Brilliance);
}

void RecordingRaytrace::SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                                   std::int32_t quality)
{
    m_log.Enter("RaytraceServices.SaveAsJpeg",
                bitmapPath + " " + jpegPath + " " + std::to_string(quality));
}

}  // namespace CorvexTest
