#include "studio/app/StudioLibraries.h"

#include "studio/app/NotOffered.h"

namespace studio {
namespace {

constexpr const char* kMaterialFiles = "material library files";
constexpr const char* kTextureFiles = "texture library files";

[[noreturn]] void RefuseIndex()
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::SubscriptOutOfRange, "No library is open.");
}

}  // namespace

CorvexDB::LibraryContent StudioMaterialLibrary::Open(const std::string& /*path*/)
{
    NotOffered(kMaterialFiles);
}

CorvexDB::udtMaterial StudioMaterialLibrary::MaterialAt(std::int32_t /*index*/)
{
    RefuseIndex();
}

void StudioMaterialLibrary::AddMaterialToLibrary(const CorvexDB::udtMaterial& /*material*/)
{
    NotOffered(kMaterialFiles);
}

void StudioMaterialLibrary::DeleteMaterialFromLibrary(std::int32_t /*index*/)
{
    RefuseIndex();
}

std::string EmptyTextureCollection::FileAt(std::int32_t /*index*/)
{
    RefuseIndex();
}

CorvexDB::LibraryContent StudioTextureLibrary::Open(const std::string& /*path*/)
{
    NotOffered(kTextureFiles);
}

std::string StudioTextureLibrary::SelectedLibraryTexture(std::int32_t /*index*/)
{
    RefuseIndex();
}

void StudioTextureLibrary::AddTextureToLibrary(const std::string& /*file*/)
{
    NotOffered(kTextureFiles);
}

void StudioTextureLibrary::DeleteTextureFromLibrary(std::int32_t /*index*/)
{
    RefuseIndex();
}

}  // namespace studio
