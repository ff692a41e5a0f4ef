#pragma once

#include "Frame.h"
#include "MaterialModel.h"
#include "RenderTarget.h"
#include "SurfaceLayers.h"
#include "SurfaceShaders.h"
#include "WrapCoordinates.h"

#include <QMatrix4x4>

#include <vector>

namespace studio {

class MeshBuffers;
class MeshBufferCache;

struct DrawItem {
    const MeshBuffers* buffers = nullptr;
    QMatrix4x4 eyeFromMesh;
    SurfaceTerms terms;
    AlphaTest alphaTest;
    SurfaceLayers layers;
    WrapTerms wrap;
    float overlayOpacity = 0.0F;
    bool doubleSided = false;
    bool mirrored = false;  ///< its transformation turns fronts into backs
};

/// A part of the picture, rows from the top.
struct PixelRegion {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// Items that are drawn together, and the part of the picture that they can touch.
struct DrawGroup {
    std::vector<DrawItem> items;
    Bounds worldBounds;
};

/// A frame, made ready for the graphics device. Its pictures have their top row first, which is
/// the order of an image in memory.
class DrawList {
public:
    DrawList(const Frame& frame, MeshBufferCache& meshes, FrameTextures& textures);

    [[nodiscard]] const DrawGroup& Solid() const { return m_solid; }
    [[nodiscard]] const DrawGroup& Transparent() const { return m_transparent; }
    [[nodiscard]] const DrawGroup& Selected() const { return m_selected; }
    [[nodiscard]] const DrawGroup& Targets() const { return m_targets; }

    /// Draws into the bound target with its depth test and blending.
    void Draw(const DrawGroup& group, SurfaceStage stage, SurfaceShaders& shaders) const;
    /// The group's part of a picture, with a margin around it, cut at the picture's edges.
    [[nodiscard]] PixelRegion RegionOf(const DrawGroup& group, PixelExtent picture,
                                       int margin) const;

private:
    void Add(const FrameItem& item, MeshBufferCache& meshes, FrameTextures& textures);

    QMatrix4x4 m_eyeFromWorld;
    QMatrix4x4 m_clipFromEye;
    QVector4D m_viewer;
    DrawGroup m_solid;
    DrawGroup m_transparent;
    DrawGroup m_selected;
    DrawGroup m_targets;
};

}  // namespace studio
