#pragma once

#include "MainWindow.h"
#include "StudioDesktop.h"
#include "StudioHost.h"
#include "TourGuide.h"

#include <QTemporaryDir>

namespace studio {

/// A message box would wait for ever where nobody sits; in a tour each is a failure.
class TourPrompts : public CorvexMaterial::Prompts {
public:
    void Show(const CorvexMaterial::Message& message) override;
    bool AskYesNo(const CorvexMaterial::Message& question) override;
    [[nodiscard]] QString Taken() { return std::exchange(m_texts, {}); }

private:
    QString m_texts;
};

/// The studio as the tour starts it: everything that it keeps lies in a temporary folder.
class TourStudio {
public:
    /// Shows the window.
    TourStudio(const QString& pictures, int firstNumber);

    [[nodiscard]] MainWindow& Window() { return m_window; }
    [[nodiscard]] TourGuide& Guide() { return m_guide; }
    [[nodiscard]] StudioHost& Host() { return m_host; }
    [[nodiscard]] CorvexMaterial::SettingsStore& Settings() { return m_desktop.Get().settings; }
    /// A folder that goes with the tour.
    [[nodiscard]] QString Folder() const { return m_folder.path(); }
    /// The file of a copy of a model that is built in.
    [[nodiscard]] QString Model() const;
    /// What message boxes have said since the last call.
    [[nodiscard]] QString TroubleTold() { return m_prompts.Taken(); }

    // Each throws TourFailure.
    [[nodiscard]] const StudioShape& ShapeNamed(const char* name) const;
    void ClickShape(const char* name, Qt::KeyboardModifiers modifiers = {});
    /// Until the scene can be drawn with all its textures.
    void AwaitTextures();
    void OpenModel(const QString& file);

private:
    QTemporaryDir m_folder;
    StudioDesktop m_desktop;
    TourPrompts m_prompts;
    StudioHost m_host;
    CorvexMaterial::Platform m_platform;
    MainWindow m_window;
    TourGuide m_guide;
};

}  // namespace studio
