#include "tests/support/RecordingViews.h"

namespace CorvexTest {

CorvexSG::Scene& RecordingViewport::Scene()
{
    m_log.Enter("Viewport.Scene");
    return m_scene;
}

void RecordingViewport::SetBackColor(CorvexMaterial::Colour colour)
{
    m_log.Enter("Viewport.SetBackColor", std::to_string(colour));
}

void RecordingViewport::SetListener(CorvexViewport::ViewportListener* newListener)
{
    listener = newListener;
    m_log.Enter("Viewport.SetListener", newListener == nullptr ? "none" : "control");
}

CorvexViewport::PixelSize RecordingViewport::Size()
{
    m_log.Enter("Viewport.Size");
    return {256, 256};
}

CorvexViewport::Viewport* RecordingViewports::CreateViewport(QWidget* parent)
{
    m_log.Enter("ViewportFactory.CreateViewport");
    auto* viewport = new RecordingViewport(m_log, parent);
    last = viewport;
    return viewport;
}

RecordingEditport::RecordingEditport(CallLog& log, QWidget* parent, std::string name)
    : QWidget(parent), m_log(log), m_name(std::move(name))
{
}

void RecordingEditport::ShowItems(std::int32_t count)
{
    m_log.Enter("Editport.ShowItems", m_name + " " + std::to_string(count));
}

std::int32_t RecordingEditport::SelectedIndex()
{
    m_log.Enter("Editport.SelectedIndex", m_name);
    return selected;
}

void RecordingEditport::SetBackColor(CorvexMaterial::Colour colour)
{
    m_log.Enter("Editport.SetBackColor", m_name + " " + std::to_string(colour));
}

void RecordingEditport::SetListener(CorvexEditport::EditportListener* newListener)
{
    listener = newListener;
    m_log.Enter("Editport.SetListener", m_name);
}

void RecordingEditport::ScrollTo(std::int32_t position)
{
    m_log.Enter("Editport.ScrollTo", m_name + " " + std::to_string(position));
}

QWidget* RecordingEditport::Companion()
{
    m_log.Enter("Editport.Companion", m_name);
    return nullptr;
}

CorvexEditport::Editport* RecordingEditports::CreateEditport(QWidget* parent,
                                                             CorvexEditport::BrowserKind kind)
{
    const bool materials = kind == CorvexEditport::BrowserKind::Materials;
    const std::string name = materials ? "materials" : "textures";
    m_log.Enter("EditportFactory.CreateEditport", name);
    return new RecordingEditport(m_log, parent, name);
}

std::string RecordingNumbers::Accept(const std::string& text,
                                     const CorvexCommon::NumericRange& /*range*/)
{
    m_log.Enter("NumericValidation.Accept", text);
    return text;
}

}  // namespace CorvexTest
