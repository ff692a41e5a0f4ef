#pragma once

#include "MissingTextures.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FindTexturesDialog;
}

namespace studio {

/// Shows what a search for missing textures found and lets the user choose what to replace.
class FindTexturesDialog : public QDialog {
    Q_OBJECT

public:
    FindTexturesDialog(const FoundTextures& found, const QString& folder,
                       QWidget* parent = nullptr);
    ~FindTexturesDialog() override;

    /// The ticked rows.
    [[nodiscard]] std::vector<TextureReplacement> Chosen() const;

private:
    void ShowSummary(const FoundTextures& found, const QString& folder);
    void AddRow(const TextureReplacement& replacement);
    void OfferApply();

    std::unique_ptr<Ui::FindTexturesDialog> m_ui;
};

}  // namespace studio
