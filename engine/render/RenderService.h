#pragma once

#include "Frame.h"
#include <CorvexMaterial/Status.h>

#include <QImage>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace studio {

class GlContextProvider;
class TextureCache;

/// A picture, or why there is none.
struct RenderResult {
    QImage image;
    CorvexMaterial::Status status = CorvexMaterial::Status::Success;
    std::string error;  ///< empty on success
};

/// The thread that owns the one graphics context of the program, and the queue before it. Created
/// and destroyed on the user-interface thread, after the application object and before it.
class RenderService {
public:
    using ViewId = std::uint64_t;
    using Callback = std::function<void(const RenderResult&)>;

    RenderService();
    explicit RenderService(std::unique_ptr<GlContextProvider> provider);
    /// Waits for the frame that is being drawn; waiting requests are dropped, their callbacks with
    /// them.
    ~RenderService();
    RenderService(const RenderService&) = delete;
    RenderService& operator=(const RenderService&) = delete;

    [[nodiscard]] ViewId AddView();
    /// No callback of this view runs afterwards.
    void RemoveView(ViewId view);

    /// Runs over every frame of a view before it is queued, on the user-interface thread: what
    /// fills in textures that are not files.
    void SetCompletion(std::function<void(Frame&)> complete);

    /// Draws later; a request of the same view that still waits is replaced and forgotten, one that
    /// is being drawn is delivered to its own callback. The callback runs on the user-interface
    /// thread from its event loop. User-interface thread only.
    void Request(ViewId view, Frame frame, Callback callback);

    /// Forgets what the view asked for; no callback of it runs until its next request.
    void Cancel(ViewId view);

    /// Waits for the picture; ahead of waiting requests. Any thread but the service's own. Errors:
    /// those of Renderer::Draw, GraphicsFailed when there is no context.
    [[nodiscard]] QImage DrawNow(Frame frame);

    /// The images of all materials. A view's picture is drawn without those that are not read yet
    /// (ask again on `textureReady`), `DrawNow` waits for them.
    [[nodiscard]] TextureCache& Textures() const;

    /// Drops context, shaders, meshes and uploaded textures; the next frame builds them anew.
    void ResetDevice();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace studio
