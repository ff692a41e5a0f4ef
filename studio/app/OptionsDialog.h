#pragma once

#include "host/Colour.h"
#include "studio/app/FieldMoves.h"

#include <QDialog>

#include <memory>

namespace Ui {
class OptionsDialog;
}

namespace studio {

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

/// Edits the studio's own settings. Nothing is written unless the user accepts.
class OptionsDialog : public QDialog {
    Q_OBJECT

public:
    /// The settings outlive the dialog.
    explicit OptionsDialog(StudioSettings& settings, QWidget* parent = nullptr);
    ~OptionsDialog() override;

    /// What the user wants done with the values of custom fields whose names have moved.
    [[nodiscard]] FieldMoves Moves() const;
    /// Writes what is shown to the settings. Errors: FileFailed.
    void Store() const;

private:
    void ShowSettings();
    void BindColour(QPushButton* button, CorvexMaterial::Colour StudioColours::*colour);
    void AddFolder();
    void BindRaytracers();
    void ShowMoves();
    [[nodiscard]] QStringList FieldNames() const;

    StudioSettings& m_settings;
    std::unique_ptr<Ui::OptionsDialog> m_ui;
    StudioColours m_colours;
    QStringList m_fields;  ///< the names so far
};

}  // namespace studio
