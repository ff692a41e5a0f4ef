#include "HeadlessThumbnails.h"

#include "PluginFolder.h"
#include "PluginTextures.h"
#include "RenderService.h"
#include "Thumbnailer.h"

namespace studio {

struct HeadlessThumbnails::Parts {
    RenderService rendering;
    PluginFolder plugins{PluginFolder::UsualFolders()};
    PluginTextures textures{plugins};
    Thumbnailer thumbnailer{rendering, &textures};
};

HeadlessThumbnails::HeadlessThumbnails() : m_parts(std::make_unique<Parts>()) {}

HeadlessThumbnails::~HeadlessThumbnails() = default;

const Thumbnailer& HeadlessThumbnails::Get() const
{
    return m_parts->thumbnailer;
}

}  // namespace studio
