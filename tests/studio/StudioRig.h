#pragma once

#include "ControlRig.h"
#include "MainWindow.h"
#include "RecordingPlatform.h"
#include "SampleFolder.h"
#include "StudioDesktop.h"
#include "StudioHost.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QDockWidget>

namespace StudioTest {

/// The real window over a settings file of its own. Message boxes are recorded, time stands still.
class StudioRig {
public:
    StudioRig();
    ~StudioRig();
    StudioRig(const StudioRig&) = delete;
    StudioRig& operator=(const StudioRig&) = delete;

    void Start();
    /// Closes the window as a user does and ends the program's parts.
    void Stop();

    [[nodiscard]] studio::MainWindow& Window() { return *m_window; }
    [[nodiscard]] studio::StudioHost& Host() { return *m_host; }
    [[nodiscard]] CorvexMaterial::SettingsStore& Settings() { return m_desktop->Get().settings; }

    [[nodiscard]] QString PathOf(const QString& name) const { return files.PathOf(name); }
    [[nodiscard]] std::shared_ptr<studio::StudioShape> Shape(std::size_t index);
    void Select(std::vector<std::size_t> indices);
    /// Waits until the model is shown or refused.
    void Open(const QString& file);
    /// Waits until what is written beside the window is there.
    void AwaitFiles();

    template <typename Widget>
    Widget& Find(const char* name)
    {
        return CorvexTest::FindIn<Widget>(*m_window, QString::fromLatin1(name));
    }
    template <typename Value>
    Value Read(CorvexMaterial::Status (CorvexMaterial::IMaterial::*get)(Value&))
    {
        return CorvexTest::ReadFrom(m_window->Panel(), get);
    }
    /// Turns to the tab that holds the control first, as a user does.
    template <typename Widget>
    Widget& Shown(const char* name)
    {
        auto& control = Find<Widget>(name);
        Reveal(control);
        return control;
    }
    void Type(const char* field, const QString& text)
    {
        CorvexTest::Type(Shown<QLineEdit>(field), text);
    }
    void Choose(const char* list, const QString& entry)
    {
        CorvexTest::Choose(Shown<QComboBox>(list), entry);
    }
    void Press(const char* control) { CorvexTest::Click(Shown<QWidget>(control)); }
    [[nodiscard]] QString TextOf(const char* field) { return Find<QLineEdit>(field).text(); }

    /// What a menu offers.
    QAction& Action(const QString& action);
    void Trigger(const QString& action) { Action(action).trigger(); }

    CorvexTest::SampleFolder files;  ///< settings in Corvex/, libraries in data/
    std::chrono::milliseconds now{0};
    bool asksWhenAdding = false;  ///< else what is added keeps the name that is proposed
    CorvexTest::CallLog log;
    CorvexTest::RecordingPrompts prompts{log};

private:
    void Reveal(const QWidget& control);

    std::unique_ptr<studio::StudioDesktop> m_desktop;
    std::unique_ptr<CorvexMaterial::Platform> m_platform;
    std::unique_ptr<studio::StudioHost> m_host;
    std::unique_ptr<studio::MainWindow> m_window;
};

/// A studio that has been started.
class StartedStudio : public testing::Test {
protected:
    StartedStudio() { rig.Start(); }

    QUndoStack& History() { return rig.Window().History(); }

    StudioRig rig;
};

}  // namespace StudioTest
