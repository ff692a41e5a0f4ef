#pragma once

#include <QVector3D>

#include <optional>

namespace studio {

struct Frame;
struct Ray;

/// What is seen at a point of a view.
struct SurfacePoint {
    QVector3D point;
    bool isPickable = true;  ///< a drag that begins there is one on a shape
};

/// What a viewport shows.
class FrameSource {
public:
    virtual ~FrameSource() = default;
    /// Adds the items. Camera, background and size are the viewport's and already filled in; a
    /// source may replace the background. Called on the user-interface thread.
    virtual void Fill(Frame& frame) = 0;
    /// What is seen along a ray; nothing for the background.
    [[nodiscard]] virtual std::optional<SurfacePoint> SurfaceAt(const Ray& /*ray*/) const
    {
        return std::nullopt;
    }
};

}  // namespace studio
