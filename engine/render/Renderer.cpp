#include "Renderer.h"

#include "Backdrop.h"
#include "DrawList.h"
#include "GlContext.h"
#include "MeshBuffers.h"
#include "OutlinePass.h"
#include "ShaderTexts.h"
#include "TransparencyPass.h"
#include <CorvexMaterial/Status.h>

#include <list>
#include <new>
#include <optional>

namespace studio {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

constexpr int kLargestSide = 8192;
constexpr std::int64_t kMeshBudgetBytes = std::int64_t{512} << 20U;
constexpr std::int64_t kTextureBudgetBytes = std::int64_t{1} << 30U;
constexpr std::size_t kKeptPictureSizes = 4;  ///< the preview, two views, a row of thumbnails

/// The textures of one picture size. Only pictures that need them have the optional ones.
struct PictureTargets {
    PictureTargets(PixelExtent size, int samples)
        : picture(size), fine(samples == 4 ? PixelExtent{size.width * 2, size.height * 2} : size),
          colour(PixelKind::Srgb8, fine, Sampling::Smooth),
          depth(PixelKind::Depth, fine, Sampling::Nearest), scene(fine, colour, &depth)
    {
        if (fine != picture) {
            shrunkColour.emplace(PixelKind::Srgb8, picture, Sampling::Nearest);
            shrunk.emplace(picture, *shrunkColour, nullptr);
        }
    }

    [[nodiscard]] const RenderTarget& Finished() const { return shrunk ? *shrunk : scene; }

    PixelExtent picture;
    PixelExtent fine;
    TargetTexture colour;
    TargetTexture depth;
    RenderTarget scene;
    std::optional<TargetTexture> shrunkColour;
    std::optional<RenderTarget> shrunk;
    std::optional<PeelTargets> peel;
    std::optional<MaskTarget> mask;
};

void CheckArguments(const Frame& frame)
{
    const auto inRange = [](int side) { return side >= 1 && side <= kLargestSide; };
    if (!inRange(frame.width) || !inRange(frame.height) ||
        (frame.samples != 1 && frame.samples != 4)) {
        throw Error(Status::InvalidArgument, "A picture of this size cannot be drawn.");
    }
}

void ThrowOnGraphicsError()
{
    const GLenum error = glGetError();
    if (error == GL_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
    if (error != GL_NO_ERROR) {
        throw Error(Status::GraphicsFailed,
                    "The graphics device reports error " + std::to_string(error) + '.');
    }
}

QImage ReadBack(const RenderTarget& target)
{
    const PixelExtent extent = target.Extent();
    QImage image(extent.width, extent.height, QImage::Format_RGB32);
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    target.Bind();
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, extent.width, extent.height, GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV,
                 image.bits());
    return image;
}

}  // namespace

struct Renderer::Parts {
    Parts() : backdrop(shaders::kBackdropFragment), shrink(shaders::kShrinkFragment) {}

    PictureTargets& TargetsOf(const Frame& frame);
    void DrawBackdrop(const Frame& frame, const RenderTarget& target) const;
    void DrawSolid(const DrawList& list, const RenderTarget& target);
    void Shrink(const PictureTargets& targets) const;
    QImage DrawPicture(const Frame& frame, const TextureLookup& lookup);

    MeshBufferCache meshes{kMeshBudgetBytes};
    TextureBufferCache textures{kTextureBudgetBytes};
    SurfaceShaders shaders;
    ScreenPass backdrop;
    ScreenPass shrink;
    TransparencyPass transparency;
    OutlinePass outline;
    std::list<PictureTargets> targets;  ///< the last used first
};

PictureTargets& Renderer::Parts::TargetsOf(const Frame& frame)
{
    const PixelExtent picture{frame.width, frame.height};
    for (auto it = targets.begin(); it != targets.end(); ++it) {
        if (it->picture == picture && (it->fine == picture) == (frame.samples == 1)) {
            targets.splice(targets.begin(), targets, it);
            return targets.front();
        }
    }
    if (targets.size() == kKeptPictureSizes) {
        targets.pop_back();
    }
    return targets.emplace_front(picture, frame.samples);
}

void Renderer::Parts::DrawBackdrop(const Frame& frame, const RenderTarget& target) const
{
    const BackdropColours colours = BackdropColoursOf(frame.background, frame.backdrop);
    backdrop.Use();
    glUniform3fv(backdrop.Uniform("encodedTop"), 1, colours.top.data());
    glUniform3fv(backdrop.Uniform("encodedBottom"), 1, colours.bottom.data());
    glUniform1f(backdrop.Uniform("rows"), static_cast<float>(target.Extent().height));
    glUniform1f(backdrop.Uniform("dither"), frame.backdrop == Backdrop::Gradient ? 1.0F : 0.0F);
    glDisable(GL_FRAMEBUFFER_SRGB);  // the colours are encoded already
    backdrop.Draw();
    glEnable(GL_FRAMEBUFFER_SRGB);
}

void Renderer::Parts::DrawSolid(const DrawList& list, const RenderTarget& target)
{
    target.Bind();
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glDepthMask(GL_TRUE);
    list.Draw(list.Solid(), SurfaceStage::Lit, shaders);
}

void Renderer::Parts::Shrink(const PictureTargets& from) const
{
    from.shrunk->Bind();
    shrink.Use();
    glUniform1i(shrink.Uniform("source"), 0);
    from.colour.BindTo(0);
    shrink.Draw();
}

QImage Renderer::Parts::DrawPicture(const Frame& frame, const TextureLookup& lookup)
{
    PictureTargets& to = TargetsOf(frame);
    FrameTextures frameTextures(lookup, textures);
    const DrawList list(frame, meshes, frameTextures);
    glEnable(GL_FRAMEBUFFER_SRGB);
    glDisable(GL_SCISSOR_TEST);
    glDisable(GL_BLEND);
    to.scene.Bind();
    glClearDepth(1.0);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT);
    DrawBackdrop(frame, to.scene);
    DrawSolid(list, to.scene);
    if (!list.Transparent().items.empty()) {
        if (!to.peel) {
            to.peel.emplace(to.fine);
        }
        transparency.Draw(list, shaders, *to.peel, to.scene);
    }
    if (to.shrunk) {
        Shrink(to);
    }
    const auto drawOutline = [&](const DrawGroup& group, Outline look) {
        if (group.items.empty()) {
            return;
        }
        if (!to.mask) {
            to.mask.emplace(to.fine);
        }
        outline.Draw(list, group, look, shaders, *to.mask, to.Finished(), frame.outlinePixels);
    };
    drawOutline(list.Selected(), Outline::Line);
    drawOutline(list.Targets(), Outline::Glow);
    QImage image = ReadBack(to.Finished());
    ThrowOnGraphicsError();
    return image;
}

Renderer::Renderer(std::unique_ptr<GlContext> context)
    : m_context(std::move(context)), m_parts(std::make_unique<Parts>())
{
}

Renderer::~Renderer() = default;

QImage Renderer::Draw(const Frame& frame, const TextureLookup& textures)
{
    CheckArguments(frame);
    QImage image = m_parts->DrawPicture(frame, textures);
    m_parts->meshes.EndFrame();
    m_parts->textures.EndFrame();
    return image;
}

std::uint64_t Renderer::TextureUploads() const
{
    return m_parts->textures.Uploads();
}

}  // namespace studio
