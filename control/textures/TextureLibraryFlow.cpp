#include "TextureLibraryFlow.h"

#include "ChannelPanel.h"
#include "ChannelServices.h"
#include "LibraryPanel.h"
#include "TextureMessages.h"
#include "TexturePage.h"

namespace CorvexMaterial {

namespace {

// "Upgrade" with a capital, other than in the text of the materials: both are known like this.
constexpr LibraryTexts kTextureLibrary{
    "TextureLibrary",
    "Loading Texture Library",
    "Texture Library Loaded",
    "Texture Library '",
    "' not found. It was likely moved, or deleted due to a Corvex Upgrade. Please reselect your "
    "preferred texture library.",
    "Corvex Texture Library",
    "cvt",
    WarningId::TextureLibrary};

}  // namespace

TextureLibraryFlow::TextureLibraryFlow(const LibraryServices& services, ChannelPanel& channels,
                                       ChannelOwner& owner)
    : LibraryFlow(kTextureLibrary, services), m_channels(channels), m_owner(owner)
{
}

void TextureLibraryFlow::CreateFile(const std::string& path)
{
    Services().host.textureLibrary.CreateLibrary(path);
}

void TextureLibraryFlow::CloseFile()
{
    Services().host.textureLibrary.CloseLibrary();
}

CorvexDB::LibraryContent TextureLibraryFlow::OpenFile(const std::string& path)
{
    return Services().host.textureLibrary.Open(path);
}

bool TextureLibraryFlow::AddCurrent()
{
    const std::string& file = m_channels.Textures().File(LayerOfTab(m_channels.CurrentTab()));
    if (file.empty()) {
        Q_EMIT StatusText(tr("There is no texture on this channel to add."));
        return false;
    }
    Services().host.textureLibrary.AddTextureToLibrary(file);
    return true;
}

void TextureLibraryFlow::DeleteAt(std::int32_t index)
{
    Services().host.textureLibrary.DeleteTextureFromLibrary(index);
}

void TextureLibraryFlow::Take(std::int32_t index)
{
    if (m_owner.SimulationTextureActive()) {
        Tell(PromptIcon::Exclamation, std::string(kPrimaryTextureDisabled));
        return;
    }
    m_channels.ChooseTexture(Services().host.textureLibrary.SelectedLibraryTexture(index));
    Services().panel.SetDeleteEnabled(true);
}

}  // namespace CorvexMaterial
