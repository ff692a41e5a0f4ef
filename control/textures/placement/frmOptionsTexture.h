#pragma once

#include "TexturePlacement.h"

#include <QDialog>

#include <array>
#include <memory>

namespace Ui {
class frmOptionsTexture;
}

namespace CorvexMaterial {

class AmountField;
struct CropRect;

/// Lets the user choose the part of a texture that is used. Used in the order of its members.
class frmOptionsTexture : public QDialog {
    Q_OBJECT

public:
    explicit frmOptionsTexture(QWidget* parent);
    ~frmOptionsTexture() override;

    void ShowTexts(const CropTexts& texts);
    /// Shows the file's image; one that cannot be read leaves an empty ground.
    void SetupForm(const std::string& file);
    [[nodiscard]] bool OKClicked() const { return m_okClicked; }
    [[nodiscard]] CorvexDB::TexturePlacement GetResults() const;

    /// Stays open over a text that is no number.
    void accept() override;

Q_SIGNALS:
    /// The user looks at this one; one without extent is only the beginning of a drag.
    void Tried(const CorvexDB::TexturePlacement& placement);

private:
    void ConnectFields();
    void ConnectPicture();
    [[nodiscard]] CropTexts Texts() const;
    void OnTextChanged();
    void ShowRect();

    std::unique_ptr<Ui::frmOptionsTexture> m_ui;
    /// In the order of `CropTexts`.
    std::array<AmountField*, 4> m_fields{};
    CorvexDB::TexturePlacement m_results;
    bool m_okClicked = false;
};

}  // namespace CorvexMaterial
