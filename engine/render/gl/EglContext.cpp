#include "EglContext.h"

#include <epoxy/egl.h>

#include <array>

namespace studio {
namespace {

class EglContext : public GlContext {
public:
    EglContext(EGLDisplay display, EGLContext context) : m_display(display), m_context(context) {}
    EglContext(const EglContext&) = delete;
    EglContext& operator=(const EglContext&) = delete;

    // The display stays initialised: it is one per process, and other contexts may use it.
    ~EglContext() override
    {
        eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(m_display, m_context);
        eglReleaseThread();
    }

private:
    EGLDisplay m_display;
    EGLContext m_context;
};

bool HasClientExtension(const char* name)
{
    return epoxy_has_egl_extension(EGL_NO_DISPLAY, name);
}

EGLDisplay SurfacelessDisplay()
{
    if (HasClientExtension("EGL_EXT_platform_base") &&
        HasClientExtension("EGL_MESA_platform_surfaceless")) {
        return eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY,
                                        nullptr);
    }
    return eglGetDisplay(EGL_DEFAULT_DISPLAY);
}

EGLContext CreateCoreContext(EGLDisplay display)
{
    constexpr std::array<EGLint, 5> kConfig{EGL_SURFACE_TYPE, 0, EGL_RENDERABLE_TYPE,
                                            EGL_OPENGL_BIT, EGL_NONE};
    constexpr std::array<EGLint, 7> kContext{EGL_CONTEXT_MAJOR_VERSION,
                                             3,
                                             EGL_CONTEXT_MINOR_VERSION,
                                             3,
                                             EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                             EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                             EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE ||
        eglChooseConfig(display, kConfig.data(), &config, 1, &count) == EGL_FALSE || count == 0) {
        return EGL_NO_CONTEXT;
    }
    return eglCreateContext(display, config, EGL_NO_CONTEXT, kContext.data());
}

}  // namespace

std::unique_ptr<GlContext> CreateEglContext()
{
    EGLDisplay display = SurfacelessDisplay();
    if (display == EGL_NO_DISPLAY || eglInitialize(display, nullptr, nullptr) == EGL_FALSE ||
        !epoxy_has_egl_extension(display, "EGL_KHR_surfaceless_context") ||
        !epoxy_has_egl_extension(display, "EGL_KHR_create_context")) {
        return nullptr;
    }
    EGLContext context = CreateCoreContext(display);
    if (context == EGL_NO_CONTEXT) {
        return nullptr;
    }
    if (eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context) == EGL_FALSE) {
        eglDestroyContext(display, context);
        return nullptr;
    }
    return std::make_unique<EglContext>(display, context);
}

}  // namespace studio
