#include "DrawList.h"

#include "MeshBuffers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace studio {
namespace {

constexpr float kNearestOfFarthest = 1.0e-4F;  ///< keeps the depths apart when the eye is inside

DepthRange DepthRangeOf(const Bounds& bounds, const QMatrix4x4& eyeFromWorld, Lens lens)
{
    if (bounds.Empty()) {
        return {};
    }
    float nearest = std::numeric_limits<float>::max();
    float farthest = std::numeric_limits<float>::lowest();
    for (const QVector3D& corner : bounds.Corners()) {
        const float depth = -eyeFromWorld.map(corner).z();
        nearest = std::min(nearest, depth);
        farthest = std::max(farthest, depth);
    }
    if (lens == Lens::Parallel) {
        const float margin = 1.0e-3F * (farthest - nearest) + 1.0e-6F;
        return {nearest - margin, farthest + margin};
    }
    farthest = std::max(farthest * 1.001F, 1.0e-6F);
    return {std::max(nearest * 0.999F, farthest * kNearestOfFarthest), farthest};
}

QMatrix4x4 UpsideDown()
{
    QMatrix4x4 matrix;
    matrix.scale(1.0F, -1.0F, 1.0F);
    return matrix;
}

void SetCulling(const DrawItem& item)
{
    if (item.doubleSided) {
        glDisable(GL_CULL_FACE);
    } else {
        glEnable(GL_CULL_FACE);
    }
    // Pictures are drawn upside down, which turns the winding of every front once.
    glFrontFace(item.mirrored ? GL_CCW : GL_CW);
}

SurfaceVariant VariantOf(const DrawItem& item, SurfaceStage stage)
{
    const LayerSet& all = item.layers.set;
    const std::string_view comparison = item.alphaTest.comparison;
    if (stage != SurfaceStage::Lit) {
        const LayerSet layers = comparison.empty() ? LayerSet() : all.OpacityOnly();
        return {stage, comparison, false, layers,
                layers.Empty() ? CoordinateKind::None : item.wrap.kind};
    }
    return {stage, comparison, item.terms.highlight > 0.0F, all,
            all.Empty() ? CoordinateKind::None : item.wrap.kind};
}

/// Neighbouring items mostly have the same textures.
class TextureBindings {
public:
    void Bind(const SurfaceLayers& layers)
    {
        for (std::size_t i = 0; i < kLayerCount; ++i) {
            const GLuint name = layers.textures[i];
            if (name != 0 && name != m_bound[i]) {
                glActiveTexture(GL_TEXTURE0 + kFirstLayerUnit + static_cast<GLenum>(i));
                glBindTexture(GL_TEXTURE_2D, name);
                m_bound[i] = name;
            }
        }
    }

private:
    std::array<GLuint, kLayerCount> m_bound{};
};

}  // namespace

DrawList::DrawList(const Frame& frame, MeshBufferCache& meshes, FrameTextures& textures)
    : m_eyeFromWorld(frame.camera.View()),
      m_viewer(frame.camera.lens == Lens::Parallel ? QVector4D(0.0F, 0.0F, 1.0F, 0.0F)
                                                   : QVector4D(0.0F, 0.0F, 0.0F, 1.0F))
{
    const QSizeF size(frame.width, frame.height);
    const DepthRange range =
        DepthRangeOf(WorldBounds(frame.items), m_eyeFromWorld, frame.camera.lens);
    m_clipFromEye = UpsideDown() * frame.camera.Projection(size, range);
    for (const FrameItem& item : frame.items) {
        if (item.mesh && !item.mesh->indices.empty()) {
            Add(item, meshes, textures);
        }
    }
}

void DrawList::Add(const FrameItem& item, MeshBufferCache& meshes, FrameTextures& textures)
{
    static const CorvexDB::udtMaterial kDefaultMaterial;
    const CorvexDB::udtMaterial& material = item.material ? *item.material : kDefaultMaterial;
    DrawItem draw;
    draw.buffers = &meshes.BuffersOf(item.mesh);
    draw.eyeFromMesh = m_eyeFromWorld * item.worldFromMesh;
    draw.layers = textures.LayersOf(item, material);
    const LayerSet& layers = draw.layers.set;
    draw.terms =
        layers.ChangesHighlight() ? HighlightMappedTermsOf(material) : SurfaceTermsOf(material);
    if (!layers.Empty()) {
        draw.wrap = WrapTermsOf(item, material);
        draw.overlayOpacity = OverlayOpacityOf(material);
    }
    draw.alphaTest = AlphaTestOf(material);
    draw.doubleSided = material.DoubleSided;
    draw.mirrored = item.worldFromMesh.determinant() < 0.0;
    const Bounds bounds = WorldBounds(item);
    const auto addTo = [&](DrawGroup& group) {
        group.items.push_back(draw);
        group.worldBounds.Include(bounds);
    };
    addTo(IsTransparent(material) || layers.ChangesOpacity() ? m_transparent : m_solid);
    if (item.selected) {
        addTo(m_selected);
    }
    if (item.target) {
        addTo(m_targets);
    }
}

void DrawList::Draw(const DrawGroup& group, SurfaceStage stage, SurfaceShaders& shaders) const
{
    std::optional<SurfaceVariant> current;
    const SurfaceShader* shader = nullptr;
    TextureBindings bindings;
    for (const DrawItem& item : group.items) {
        const SurfaceVariant variant = VariantOf(item, stage);
        if (current != variant) {
            current = variant;
            shader = &shaders.Shader(variant);
            shader->Use({m_clipFromEye, m_eyeFromWorld.inverted(), m_viewer});
        }
        bindings.Bind(item.layers);
        shader->SetItem(item);
        SetCulling(item);
        item.buffers->Draw();
    }
}

PixelRegion DrawList::RegionOf(const DrawGroup& group, PixelExtent picture, int margin) const
{
    const PixelRegion whole{0, 0, picture.width, picture.height};
    const QMatrix4x4 clipFromWorld = m_clipFromEye * m_eyeFromWorld;
    QVector3D low(1.0F, 1.0F, 0.0F);
    QVector3D high(-1.0F, -1.0F, 0.0F);
    for (const QVector3D& corner : group.worldBounds.Corners()) {
        const QVector4D clip = clipFromWorld * QVector4D(corner, 1.0F);
        if (!(clip.w() > 0.0F)) {
            return whole;  // partly behind the eye
        }
        const QVector3D point = clip.toVector3DAffine();
        low = {std::min(low.x(), point.x()), std::min(low.y(), point.y()), 0.0F};
        high = {std::max(high.x(), point.x()), std::max(high.y(), point.y()), 0.0F};
    }
    const auto pixel = [&](float ndc, int size, int shift) {
        const float position = (std::clamp(ndc, -1.0F, 1.0F) + 1.0F) / 2.0F;
        const float rounded = std::floor(position * static_cast<float>(size));
        return std::clamp(static_cast<int>(rounded) + shift, 0, size);
    };
    const int left = pixel(low.x(), picture.width, -margin);
    const int top = pixel(low.y(), picture.height, -margin);
    const int right = pixel(high.x(), picture.width, margin + 1);
    const int bottom = pixel(high.y(), picture.height, margin + 1);
    return {left, top, right - left, bottom - top};
}

}  // namespace studio
