#include "PanelRig.h"

namespace CorvexTest {

using CorvexMaterial::ChannelPanel;

PanelRig::PanelRig()
    : m_errorHandler(platform.prompts, host.diagnostics, host.applicationState),
      m_trap(m_errorHandler),
      panel(std::make_unique<ChannelPanel>(
          m_trap, CorvexMaterial::ChannelServices{m_host, m_platform, *this}, nullptr))
{
    QObject::connect(panel.get(), &ChannelPanel::Edited, [this] { log.Note("Event.Edited"); });
    QObject::connect(panel.get(), &ChannelPanel::WarningRequested,
                     [this](const QString& text, const QString& key) {
                         warnings.push_back({text.toStdString(), key.toStdString()});
                     });
    QObject::connect(panel.get(), &ChannelPanel::CustomFieldsShown,
                     [this] { ++customFieldsShown; });
    panel->resize(276, 320);
    panel->show();
    Enter(2);
}

void PanelRig::Enter(int tab)
{
    panel->SetCurrentTab(tab);
    warnings.clear();
    log.Clear();
}

const CorvexMaterial::Message& PanelRig::LastMessage() const
{
    if (platform.prompts.shown.empty()) {
        throw std::logic_error("no message was shown");
    }
    return platform.prompts.shown.back();
}

}  // namespace CorvexTest
