#include "MaterialLibraryFlow.h"

#include "MaterialGatherer.h"

namespace CorvexMaterial {

namespace {

constexpr LibraryTexts kMaterialLibrary{
    "MaterialLibrary",
    "Loading Material Library",
    "Material Library Loaded",
    "Material Library '",
    "' not found. It was likely moved, or deleted due to a Corvex upgrade. Please reselect your "
    "preferred material library.",
    "Corvex Material Library",
    "cvm",
    WarningId::MaterialLibrary};

}  // namespace

MaterialLibraryFlow::MaterialLibraryFlow(const LibraryServices& services,
                                         MaterialGatherer& gatherer, Put put)
    : LibraryFlow(kMaterialLibrary, services), m_gatherer(gatherer), m_put(std::move(put))
{
}

void MaterialLibraryFlow::CreateFile(const std::string& path)
{
    Services().host.materialLibrary.CreateLibrary(path);
}

void MaterialLibraryFlow::CloseFile()
{
    Services().host.materialLibrary.CloseLibrary();
}

CorvexDB::LibraryContent MaterialLibraryFlow::OpenFile(const std::string& path)
{
    return Services().host.materialLibrary.Open(path);
}

bool MaterialLibraryFlow::AddCurrent()
{
    Services().host.materialLibrary.AddMaterialToLibrary(m_gatherer.Whole());
    return true;
}

std::vector<CorvexDB::HostLibrary> MaterialLibraryFlow::HostLibraries()
{
    return Services().host.materialLibrary.HostLibraries();
}

void MaterialLibraryFlow::DeleteAt(std::int32_t index)
{
    Services().host.materialLibrary.DeleteMaterialFromLibrary(index);
}

void MaterialLibraryFlow::Take(std::int32_t index)
{
    m_put(Services().host.materialLibrary.MaterialAt(index));
}

}  // namespace CorvexMaterial
