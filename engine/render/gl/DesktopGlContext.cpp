#include "DesktopGlContext.h"

#include <CorvexMaterial/Status.h>

#include <QOffscreenSurface>
#include <QOpenGLContext>

namespace studio {
namespace {

class DesktopGlContext : public GlContext {
public:
    explicit DesktopGlContext(QOffscreenSurface& surface)
    {
        m_context.setFormat(surface.requestedFormat());
        if (!surface.isValid() || !m_context.create() || !m_context.makeCurrent(&surface) ||
            m_context.format().version() < qMakePair(3, 3)) {
            throw CorvexMaterial::Error(
                CorvexMaterial::Status::GraphicsFailed,
                "This system offers no OpenGL 3.3, which the 3D view needs.");
        }
    }
    DesktopGlContext(const DesktopGlContext&) = delete;
    DesktopGlContext& operator=(const DesktopGlContext&) = delete;
    ~DesktopGlContext() override { m_context.doneCurrent(); }

private:
    QOpenGLContext m_context;
};

}  // namespace

std::unique_ptr<GlContext> CreateDesktopGlContext(QOffscreenSurface& surface)
{
    return std::make_unique<DesktopGlContext>(surface);
}

}  // namespace studio
