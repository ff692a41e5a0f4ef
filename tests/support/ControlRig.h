#pragma once

#include "Driving.h"
#include "RecordingHost.h"
#include "RecordingPlatform.h"
#include "RecordingPlugin.h"
#include <CorvexMaterial/Material.h>

namespace CorvexTest {

/// One `evtReqWarn`.
struct RequestedWarning {
    QString application;
    QString text;
    QString key;
};

/// What a property gives; reading one never fails.
template <typename Value>
Value ReadFrom(CorvexMaterial::IMaterial& control,
               CorvexMaterial::Status (CorvexMaterial::IMaterial::*get)(Value&))
{
    Value value{};
    if ((control.*get)(value) != CorvexMaterial::Status::Success) {
        throw std::logic_error("a property cannot be read");
    }
    return value;
}

/// A control in a recording host and desktop; the control's own dialogs of warning are silenced.
/// Its events enter the same log, named "Event.MaterialChanged" and so on, so that their place
/// among the host's calls can be seen.
class ControlRig {
public:
    ControlRig();
    ~ControlRig();
    ControlRig(const ControlRig&) = delete;
    ControlRig& operator=(const ControlRig&) = delete;

    /// Makes and shows the control; nothing is loaded.
    void Create();
    /// Scene details, preview scene, saved state, in that order, with the panel open. The log is
    /// cleared.
    void Start();
    /// Ends the control; host, desktop and stored settings stay.
    void Terminate();
    /// A new control over the same settings, as after a new start of the host.
    void Restart();

    /// The host's only plug-in, listed and chosen.
    void ChoosePlugin(const std::string& name, const std::function<Parameters()>& answer);

    [[nodiscard]] CorvexMaterial::Material& Control() { return *m_control; }
    template <typename Value>
    Value Read(CorvexMaterial::Status (CorvexMaterial::IMaterial::*get)(Value&))
    {
        return ReadFrom(*m_control, get);
    }
    /// `MaterialChanged` since the log was cleared.
    [[nodiscard]] std::size_t Changes() const { return log.CountOf("Event.MaterialChanged"); }
    /// File name of the mesh that the preview shows.
    [[nodiscard]] std::string ShownMesh() const;
    /// The material that the preview shape shows.
    [[nodiscard]] const CorvexDB::udtMaterial& Previewed() const;

    template <typename Widget>
    Widget& Find(const char* name)
    {
        return FindIn<Widget>(*m_control, QString::fromLatin1(name));
    }
    // Brought into view as a user would, by the tab that holds them. Hidden when none does.
    QWidget& Shown(const char* name) { return Reveal<QWidget>(name); }
    QLineEdit& Field(const char* name) { return Reveal<QLineEdit>(name); }
    QCheckBox& Tick(const char* name) { return Reveal<QCheckBox>(name); }
    QComboBox& List(const char* name) { return Reveal<QComboBox>(name); }
    void Press(const char* name) { Click(Shown(name)); }

    CallLog log;
    RecordingHost host{log};
    RecordingPlatform platform{log};
    std::vector<CorvexMaterial::MaterialEdit> edits;
    std::vector<RequestedWarning> warnings;
    std::vector<QString> positionTexts;
    std::vector<QString> statusTexts;

private:
    template <typename Widget>
    Widget& Reveal(const char* name)
    {
        auto& widget = Find<Widget>(name);
        Reveal(widget);
        return widget;
    }
    void Reveal(const QWidget& widget);
    void Listen();

    CorvexMaterial::Host m_host;
    CorvexMaterial::Platform m_platform;
    std::map<QString, int> m_tabs;  ///< where controls were found before
    std::unique_ptr<CorvexMaterial::Material> m_control;
};

class WithControl : public testing::Test {
protected:
    ControlRig rig;
};

class WithStartedControl : public WithControl {
protected:
    WithStartedControl() { rig.Start(); }
};

}  // namespace CorvexTest
