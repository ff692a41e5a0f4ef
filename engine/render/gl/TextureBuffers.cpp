#include "TextureBuffers.h"

#include "DropOldest.h"

#include <algorithm>
#include <new>
#include <string_view>

namespace studio {
namespace {

/// Several views take turns; none of them may let go of what the others draw.
constexpr std::uint64_t kHeldFrames = 60;
constexpr float kMostAnisotropy = 8.0F;

/// A device in software takes far longer for it, and spoils pixels at the edges of triangles.
bool WantsAnisotropy()
{
    const auto* text = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    const std::string_view renderer = text != nullptr ? text : "";
    const bool software = renderer.find("llvmpipe") != std::string_view::npos ||
                          renderer.find("softpipe") != std::string_view::npos;
    return !software && epoxy_has_gl_extension("GL_EXT_texture_filter_anisotropic");
}

void SetAnisotropy()
{
    if (WantsAnisotropy()) {
        GLfloat most = 1.0F;
        glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &most);
        glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT,
                        std::min(most, kMostAnisotropy));
    }
}

void Upload(const QImage& image, PixelUse use)
{
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, static_cast<GLint>(image.bytesPerLine() / 4));
    glTexImage2D(GL_TEXTURE_2D, 0, use == PixelUse::Colour ? GL_SRGB8_ALPHA8 : GL_RGBA8,
                 image.width(), image.height(), 0, GL_RGBA, GL_UNSIGNED_BYTE, image.constBits());
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    SetAnisotropy();
    glGenerateMipmap(GL_TEXTURE_2D);
    if (glGetError() == GL_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
}

}  // namespace

GLuint TextureBufferCache::TextureOf(const TexturePointer& texture, PixelUse use)
{
    const Key key{texture->id, use};
    auto found = m_entries.find(key);
    if (found == m_entries.end()) {
        Entry entry;
        entry.bytes = std::int64_t{texture->image.sizeInBytes()} * 4 / 3;
        glBindTexture(GL_TEXTURE_2D, entry.texture.Name());
        Upload(texture->image, use);
        ++m_uploads;
        found = m_entries.emplace(key, std::move(entry)).first;
    }
    found->second.held = texture;
    found->second.pixels = texture;
    found->second.lastUse = m_frame;
    return found->second.texture.Name();
}

void TextureBufferCache::EndFrame()
{
    for (auto& [key, entry] : m_entries) {
        if (m_frame - entry.lastUse > kHeldFrames) {
            entry.held.reset();
        }
    }
    std::erase_if(m_entries, [](const auto& item) { return item.second.pixels.expired(); });
    DropOldest(m_entries, m_budgetBytes, [](const Entry& /*entry*/) { return true; });
    ++m_frame;
}

}  // namespace studio
