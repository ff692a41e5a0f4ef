#include "RecordingViews.h"

namespace CorvexTest {

CorvexSG::Scene& RecordingViewport::Scene()
{
    m_log.Enter("Viewport.Scene");
    return m_scene;
}

void RecordingViewport::SetListener(CorvexViewport::ViewportListener* newListener)
{
    listener = newListener;
    m_log.Enter("Viewport.SetListener", newListener == nullptr ? "none" : "control");
}

CorvexViewport::Viewport* RecordingViewports::CreateViewport(QWidget* parent)
{
    m_log.Enter("ViewportFactory.CreateViewport");
    auto* viewport = new RecordingViewport(m_log, parent);
    made.emplace_back(viewport);
    return viewport;
}

RecordingEditport::RecordingEditport(CallLog& log, QWidget* parent, std::string name)
    : QWidget(parent), Recording(log), m_name(std::move(name))
{
}

void RecordingEditport::SetListener(CorvexEditport::EditportListener* newListener)
{
    listener = newListener;
    m_log.Enter("Editport.SetListener", m_name);
}

CorvexEditport::Editport* RecordingEditports::CreateEditport(QWidget* parent,
                                                             CorvexEditport::BrowserKind kind)
{
    const bool materials = kind == CorvexEditport::BrowserKind::Materials;
    const std::string name = materials ? "materials" : "textures";
    m_log.Enter("EditportFactory.CreateEditport", name);
    return new RecordingEditport(m_log, parent, name);
}

}  // namespace CorvexTest
