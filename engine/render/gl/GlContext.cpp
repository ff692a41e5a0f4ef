#include "GlContext.h"

#include "DesktopGlContext.h"
#include "EglContext.h"
#include <CorvexMaterial/Status.h>

#include <QOffscreenSurface>
#include <QSurfaceFormat>

namespace studio {
namespace {

QSurfaceFormat CoreFormat()
{
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    return format;
}

class SystemContextProvider : public GlContextProvider {
public:
    /// A surface can be created on the user-interface thread only, so it is decided here whether
    /// one will be needed.
    SystemContextProvider()
    {
        if (CreateEglContext() == nullptr) {
            m_surface = std::make_unique<QOffscreenSurface>();
            m_surface->setFormat(CoreFormat());
            m_surface->create();
        }
    }

    std::unique_ptr<GlContext> Create() override
    {
        if (m_surface) {
            return CreateDesktopGlContext(*m_surface);
        }
        std::unique_ptr<GlContext> context = CreateEglContext();
        if (!context) {
            throw CorvexMaterial::Error(CorvexMaterial::Status::GraphicsFailed,
                                        "The 3D device cannot be created.");
        }
        return context;
    }

private:
    std::unique_ptr<QOffscreenSurface> m_surface;
};

}  // namespace

std::unique_ptr<GlContextProvider> MakeGlContextProvider()
{
    return std::make_unique<SystemContextProvider>();
}

}  // namespace studio
