#pragma once

#include "ChannelPanel.h"
#include "Driving.h"
#include "RecordingHost.h"
#include "RecordingPlatform.h"
#include "TexturePage.h"
#include "Trap.h"

namespace CorvexTest {

struct RaisedWarning {
    std::string text;
    std::string key;

    bool operator==(const RaisedWarning&) const = default;
};

/// The channel panel on a recording host and desktop, shown on tab 2. Its edits enter the log as
/// "Event.Edited".
class PanelRig : private CorvexMaterial::ChannelOwner {
public:
    PanelRig()
    {
        using CorvexMaterial::ChannelPanel;
        QObject::connect(&panel, &ChannelPanel::Edited, [this] { log.Note("Event.Edited"); });
        QObject::connect(&panel, &ChannelPanel::WarningRequested,
                         [this](const QString& text, const QString& key) {
                             warnings.push_back({text.toStdString(), key.toStdString()});
                         });
        QObject::connect(&panel, &ChannelPanel::CustomFieldsShown, [this] { ++customFieldsShown; });
        panel.resize(276, 320);
        panel.show();
        Enter(2);
    }

    [[nodiscard]] std::size_t Edits() const { return log.CountOf("Event.Edited"); }
    [[nodiscard]] CorvexMaterial::TexturePage& Page() { return panel.Textures(); }
    /// Enters a tab and forgets what that called.
    void Enter(int tab)
    {
        panel.SetCurrentTab(tab);
        warnings.clear();
        log.Clear();
    }
    [[nodiscard]] const CorvexMaterial::Message& LastMessage() const
    {
        return platform.prompts.shown.empty() ? throw std::logic_error("no message was shown")
                                              : platform.prompts.shown.back();
    }

    template <typename Widget = QWidget>
    Widget& Find(const QString& name)
    {
        return FindIn<Widget>(panel, name);
    }
    void Press(const QString& name) { Click(Find(name)); }

    CallLog log;
    RecordingHost host{log};
    RecordingPlatform platform{log};
    std::vector<RaisedWarning> warnings;
    int customFieldsShown = 0;
    bool simulationActive = false;

private:
    bool SimulationTextureActive() override { return simulationActive; }
    std::string TextureLibraryFile() override { return "/libraries/Gems.cvt"; }

    CorvexMaterial::Host m_host{host.Get()};
    CorvexMaterial::Platform m_platform{platform.Get()};
    CorvexMaterial::modCorvexGeneralErrorHandler m_errorHandler{platform.prompts, host.diagnostics,
                                                                host.applicationState};
    CorvexMaterial::Trap m_trap{m_errorHandler};
    CorvexMaterial::Trial m_trial;

public:
    CorvexMaterial::ChannelPanel panel{m_trap, {m_host, m_platform, *this, m_trial}, nullptr};
};

}  // namespace CorvexTest
