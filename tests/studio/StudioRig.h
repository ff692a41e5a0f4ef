#pragma once

#include "studio/app/MainWindow.h"
#include "studio/app/StudioDesktop.h"
#include "studio/app/StudioHost.h"
#include "tests/support/Driving.h"
#include "tests/support/RecordingPlatform.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>

#include <chrono>
#include <memory>

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
    [[nodiscard]] QString SettingsFile() const;
    [[nodiscard]] QString PathOf(const char* name) const;

    [[nodiscard]] std::shared_ptr<studio::StudioShape> Shape(std::size_t index);
    void Select(std::vector<std::size_t> indices);
    /// Waits until the model is shown or refused.
    void Open(const QString& file);

    template <typename Widget>
    Widget& Find(const char* name)
    {
        auto* found = m_window->findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) {
            throw std::logic_error(std::string("there is no ") + name);
        }
        return *found;
    }
    // Each turns to the tab that holds the control first, as a user does.
    void Type(const char* field, const QString& text);
    void Choose(const char* list, const QString& entry);
    void Press(const char* control);
    [[nodiscard]] QString TextOf(const char* field) { return Find<QLineEdit>(field).text(); }

    std::chrono::milliseconds now{0};
    CorvexTest::CallLog log;
    CorvexTest::RecordingPrompts prompts{log};

private:
    void Reveal(const QWidget& control);

    QTemporaryDir m_folder;
    std::unique_ptr<studio::StudioDesktop> m_desktop;
    std::unique_ptr<CorvexMaterial::Platform> m_platform;
    std::unique_ptr<studio::StudioHost> m_host;
    std::unique_ptr<studio::MainWindow> m_window;
};

}  // namespace StudioTest
