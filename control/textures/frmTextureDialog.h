#pragma once

#include "ChannelServices.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmTextureDialog;
}

namespace CorvexMaterial {

class Trap;

/// Setting, section "Application": "0" while the texture dialog is asked, "1" when it has chosen.
inline constexpr std::string_view kSelectionCompleteKey = "TextureSelectionComplete";

/// Lets the user choose from the open texture library in the host's browser.
class frmTextureDialog : public QDialog, private CorvexEditport::EditportListener {
    Q_OBJECT

public:
    frmTextureDialog(const Trap& trap, ChannelServices services, QWidget* parent);
    ~frmTextureDialog() override;

    void SetBackColor(Colour colour);
    /// File of the texture chosen, `kNothingChosen` until then and after a cancel.
    [[nodiscard]] const std::string& SelectedTexture() const { return m_selectedTexture; }

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void AddBrowser();
    void Forget();
    void ItemSelected(std::int32_t index) override;
    void ItemOpened(std::int32_t index) override;
    void Choose(std::int32_t index);
    void RecordSelection();

    const Trap& m_trap;
    ChannelServices m_services;
    CorvexDB::TextureCollection& m_textures;
    std::unique_ptr<Ui::frmTextureDialog> m_ui;
    CorvexEditport::Editport* m_browser = nullptr;
    std::string m_selectedTexture;
};

}  // namespace CorvexMaterial
