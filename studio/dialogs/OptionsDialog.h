#pragma once

#include "FieldMoves.h"
#include "Navigation.h"
#include "SceneWriters.h"
#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/Processes.h>
#include <CorvexMaterial/Prompts.h>

#include <QDialog>

#include <memory>
#include <span>
#include <vector>

namespace Ui {
class OptionsDialog;
}

namespace studio {

class RaytracerField;
class StudioSettings;

/// The colours behind preview, viewport and the two library browsers.
struct StudioColours {
    CorvexMaterial::Colour preview = 0;
    CorvexMaterial::Colour viewport = 0;
    CorvexMaterial::Colour materialLibrary = 0;
    CorvexMaterial::Colour textureLibrary = 0;
};

[[nodiscard]] StudioColours ReadColours(const StudioSettings& settings);
/// Stores the colours of the libraries, which the panel's dialogs look up for themselves.
void ProvideColours(StudioSettings& settings);

[[nodiscard]] NavigationPreset ReadNavigation(const StudioSettings& settings);

/// Edits the studio's own settings. Nothing is written unless the user accepts.
class OptionsDialog : public QDialog {
    Q_OBJECT

public:
    /// Settings, processes, choosers and raytracers outlive the dialog.
    OptionsDialog(StudioSettings& settings, CorvexMaterial::ProcessStarter& processes,
                  CorvexMaterial::Choosers& choosers, QWidget* parent = nullptr,
                  std::span<const SceneWriter> raytracers = SceneWriters());
    ~OptionsDialog() override;

    /// Where backups of documents are.
    void ShowBackupFolder(const QString& folder);
    /// What the user wants done with the values of custom fields whose names have moved.
    [[nodiscard]] FieldMoves Moves() const;
    /// Writes what is shown to the settings. Errors: FileFailed.
    void Store() const;

Q_SIGNALS:
    /// To be seen at once; a dialog that is cancelled takes it back.
    void ThemeShown(int choice);
    /// What the user looks at; they are not his choice before he accepts.
    void ColoursTried(const studio::StudioColours& colours);

private:
    void ShowSettings();
    void BindColour(QPushButton* button, CorvexMaterial::Colour StudioColours::*colour);
    void ShowColour(QPushButton* button, CorvexMaterial::Colour StudioColours::*which,
                    CorvexMaterial::Colour colour);
    void AddFolder();
    void AddRaytracers(std::span<const SceneWriter> raytracers,
                       CorvexMaterial::ProcessStarter& processes);
    void ShowMoves();
    void ShowNavigation();
    [[nodiscard]] QStringList FieldNames() const;

    StudioSettings& m_settings;
    std::unique_ptr<Ui::OptionsDialog> m_ui;
    StudioColours m_colours;
    CorvexMaterial::Choosers& m_choosers;
    std::unique_ptr<CorvexMaterial::OpenColourDialog> m_picking;
    std::vector<RaytracerField*> m_raytracers;
    QStringList m_fields;  ///< the names so far
};

}  // namespace studio
