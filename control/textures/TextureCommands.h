#pragma once

#include "ChannelServices.h"
#include "LayerDrag.h"
#include "TouchedRows.h"
#include <CorvexMaterial/TextureLayers.h>

#include <QObject>

#include <optional>
#include <string>

namespace CorvexMaterial {

class TexturePage;
class Trap;
class frmOptionsFlatWrap;
class frmOptionsTexture;

/// What the buttons and dialogs of the texture page do. Every flow is one `Edited` at its end, or
/// none when it changed nothing; one that touched nothing asks for the picture to be made anew.
class TextureCommands : public QObject {
    Q_OBJECT

public:
    TextureCommands(const Trap& trap, ChannelServices services, TexturePage& page);

    void SetTab(int tab) { m_tab = tab; }
    /// Nothing on a tab without a layer.
    [[nodiscard]] std::optional<TextureLayer> CurrentLayer() const;

    /// A file from outside, checked like one from the file dialog; for the current tab's layer.
    void TakeFile(const QString& file);
    /// What the user has chosen. Crop and tiling do not stick to another texture: they go with the
    /// old one, in the same edit.
    void Assign(TextureLayer layer, const std::string& file);
    /// Takes the place of what the other layer has.
    void Take(TextureLayer from, TextureLayer to, Transfer transfer);
    /// The texture library in a dialog, for the current tab; needs no layer of its own.
    void OpenLibrary();

Q_SIGNALS:
    void Edited(const CorvexMaterial::TouchedRows& touched);

private:
    void Connect();
    void SelectFile();
    void ChooseFromLibrary();
    /// Tells the user when it is.
    [[nodiscard]] bool PrimaryIsLocked();
    [[nodiscard]] std::string AskTextureDialog();
    void Crop();
    void TakeCrop(const frmOptionsTexture& dialog);
    void Delete();
    [[nodiscard]] TouchedRows Clear(TextureLayer layer);
    void EditFlatWrap();
    void TakeFlatWrap(const frmOptionsFlatWrap& dialog);
    [[nodiscard]] QWidget* Window() const;

    const Trap& m_trap;
    ChannelServices m_services;
    TexturePage& m_page;
    int m_tab = 1;
};

}  // namespace CorvexMaterial
