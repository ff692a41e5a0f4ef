#include "RecordingHost.h"

namespace CorvexTest {

RecordingHost::RecordingHost(CallLog& log)
    : applicationState(log), diagnostics(log), graphics(log), materialLibrary(log),
      textureLibrary(log), plugins(log), customFields(log), raytrace(log), exporter(log),
      viewports(log), editports(log), numbers(log), sceneGraph(log)
{
}

CorvexMaterial::Host RecordingHost::Get()
{
    return {applicationState, diagnostics, graphics, materialLibrary, textureLibrary, plugins,
            customFields,     raytrace,    exporter, viewports,       editports,      numbers};
}

RecordingViewport* RecordingHost::Viewport() const
{
    for (auto i = viewports.made.rbegin(); i != viewports.made.rend(); ++i) {
        if (*i != nullptr && (*i)->objectName() == "dfvMaterialViewport") {
            return dynamic_cast<RecordingViewport*>(i->data());
        }
    }
    return nullptr;
}

}  // namespace CorvexTest
