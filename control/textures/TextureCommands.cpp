#include "TextureCommands.h"

#include "ErrorTexts.h"
#include "TextureFileDialog.h"
#include "TextureMessages.h"
#include "TexturePage.h"
#include "Trap.h"
#include "frmOptionsFlatWrap.h"
#include "frmOptionsTexture.h"
#include "frmTextureDialog.h"
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/SettingsNames.h>

#include <algorithm>
#include <iterator>

namespace CorvexMaterial {

namespace {

/// Of the pop-up alone; the library panel's browser has its own default.
constexpr Colour kPopupBackground = 15663086;

constexpr int kFirstTabAfterPrimary = 3;

}  // namespace

TextureCommands::TextureCommands(const Trap& trap, ChannelServices services, TexturePage& page)
    : QObject(&page), m_trap(trap), m_services(services), m_page(page)
{
    Connect();
}

void TextureCommands::Connect()
{
    const auto run = [this](const char* location, void (TextureCommands::*command)()) {
        return [this, location, command] { m_trap(location, [&] { (this->*command)(); }); };
    };
    connect(&m_page, &TexturePage::SelectPressed, this,
            run("imgTexture", &TextureCommands::SelectFile));
    connect(&m_page, &TexturePage::CropPressed, this, run("cmdTexture", &TextureCommands::Crop));
    connect(&m_page, &TexturePage::DeletePressed, this,
            run("cmdDeleteTexture", &TextureCommands::Delete));
    connect(&m_page, &TexturePage::FlatWrapOptionsWanted, this,
            run("optWrapType", &TextureCommands::EditFlatWrap));
    // Queued: a refused file opens a box, and the drag's source waits for the end of the drop.
    connect(&m_page, &TexturePage::FileDropped, this, &TextureCommands::TakeFile,
            Qt::QueuedConnection);
}

QWidget* TextureCommands::Window() const
{
    return m_page.window();
}

std::optional<TextureLayer> TextureCommands::CurrentLayer() const
{
    const auto* const row =
        std::ranges::find_if(kTextureLayers, [this](const TextureLayerRow& candidate) {
            return candidate.tab == m_tab;
        });
    return row == kTextureLayers.end() ? std::nullopt : std::optional(row->layer);
}

void TextureCommands::Assign(TextureLayer layer, const std::string& file)
{
    TouchedRows touched{{FileOf(layer)}};
    if (m_page.BeginsAnew(layer, file)) {
        std::ranges::copy(m_page.ForgetPlacement(), std::back_inserter(touched));
    }
    m_page.SetFile(layer, file);
    Q_EMIT Edited(touched);
}

void TextureCommands::Take(TextureLayer from, TextureLayer to, Transfer transfer)
{
    const std::string file = m_page.File(from);
    const bool mayLeave = transfer == Transfer::Copy || m_page.IsEnabled(from);
    if (from == to || file.empty() || !mayLeave || !m_page.IsEnabled(to)) {
        return;
    }
    TouchedRows touched{{FileOf(to)}};
    m_page.SetFile(to, file);
    if (transfer == Transfer::Move) {
        std::ranges::copy(Clear(from), std::back_inserter(touched));
    }
    Q_EMIT Edited(touched);
}

void TextureCommands::SelectFile()
{
    const auto layer = CurrentLayer();
    if (!layer) {
        return;
    }
    TextureFileDialog dialog(m_services.host, m_services.platform, Window());
    const std::string file = dialog.SelectTextureFile(
        TextureTypeList::All, m_services.host.applicationState.SettingsApplicationName(),
        m_page.File(*layer));
    if (!file.empty()) {
        Assign(*layer, file);
    }
}

void TextureCommands::TakeFile(const QString& file)
{
    const auto layer = CurrentLayer();
    if (!layer) {
        return;
    }
    m_trap("imgTexture", [&] {
        TextureFileDialog dialog(m_services.host, m_services.platform, Window());
        if (!PrimaryIsLocked() &&
            dialog.Accepts(file.toStdString(), TextureTypeList::All,
                           m_services.host.applicationState.SettingsApplicationName())) {
            Assign(*layer, file.toStdString());
        }
    });
}

bool TextureCommands::PrimaryIsLocked()
{
    if (m_tab >= kFirstTabAfterPrimary || !m_services.owner.SimulationTextureActive()) {
        return false;
    }
    m_services.platform.prompts.Show(
        {PromptIcon::Exclamation, std::string(kBoxTitle), std::string(kPrimaryTextureDisabled)});
    return true;
}

void TextureCommands::OpenLibrary()
{
    m_trap("cmdTexturePopup", [this] { ChooseFromLibrary(); });
}

void TextureCommands::ChooseFromLibrary()
{
    if (PrimaryIsLocked()) {
        return;
    }
    const std::string file = AskTextureDialog();
    if (file != kNothingChosen) {
        Assign(LayerOfTab(m_tab), file);
    }
    // Last: a store that cannot be written must not cost the user his choice.
    m_services.platform.settings.Flush(m_services.host.applicationState.SettingsApplicationName());
}

std::string TextureCommands::AskTextureDialog()
{
    SettingsStore& settings = m_services.platform.settings;
    const auto application = [this] {
        return m_services.host.applicationState.SettingsApplicationName();
    };
    settings.Write({application(), kApplicationSection, std::string(kSelectionCompleteKey)}, "0");
    const auto background =
        settings.Read({application(), kApplicationSection, kBackgroundTextureKey});

    frmTextureDialog dialog(m_trap, m_services, Window());
    dialog.SetBackColor(background ? WholeNumberFromText(*background).value_or(kPopupBackground)
                                   : kPopupBackground);
    dialog.exec();
    // Read back for whoever watches the key; the answer itself is the dialog's.
    static_cast<void>(
        settings.Read({application(), kApplicationSection, std::string(kSelectionCompleteKey)}));
    return dialog.SelectedTexture();
}

void TextureCommands::Crop()
{
    const auto layer = CurrentLayer();
    if (!layer) {
        return;
    }
    auto* dialog = new frmOptionsTexture(Window());
    dialog->ShowTexts(TextsOf(m_page.Placement()));
    dialog->SetupForm(m_page.File(*layer));
    connect(dialog, &frmOptionsTexture::Tried, this,
            [this](const CorvexDB::TexturePlacement& placement) {
                m_services.trial.Show({{Attribute::OriginU, 0, placement.originU},
                                       {Attribute::OriginV, 0, placement.originV},
                                       {Attribute::ScaleU, 0, placement.scaleU},
                                       {Attribute::ScaleV, 0, placement.scaleV}});
            });
    m_services.trial.Open(*dialog, m_page.CropButton(), [this, dialog] { TakeCrop(*dialog); });
}

void TextureCommands::TakeCrop(const frmOptionsTexture& dialog)
{
    if (dialog.OKClicked()) {
        m_page.SetPlacement(dialog.GetResults());
        Q_EMIT Edited({{Attribute::OriginU}});  // and with it the other three
    }
}

void TextureCommands::Delete()
{
    if (const auto layer = CurrentLayer()) {
        Q_EMIT Edited(Clear(*layer));
    }
}

TouchedRows TextureCommands::Clear(TextureLayer layer)
{
    TouchedRows touched{{FileOf(layer)}};
    m_page.SetFile(layer, {});
    if (layer == TextureLayer::Overlay) {
        m_page.SetOverlayTranslucencyText(std::string(FactoryText(Attribute::OverlayTranslucency)));
        touched.push_back({Attribute::OverlayTranslucency});
    }
    return touched;
}

void TextureCommands::EditFlatWrap()
{
    auto* dialog = new frmOptionsFlatWrap(Window());
    dialog->ShowOptions(m_page.FlatWrap(), m_page.TilesPerUnit());
    connect(dialog, &frmOptionsFlatWrap::Tried, this, [this, dialog] {
        m_services.trial.Show(
            {{Attribute::FlatWrapType, 0, static_cast<std::int32_t>(dialog->FlatWrap())},
             {Attribute::TilesPerUnit, 0, dialog->TilesPerUnit()}});
    });
    m_services.trial.Open(*dialog, m_page.FlatWrapButton(),
                          [this, dialog] { TakeFlatWrap(*dialog); });
}

void TextureCommands::TakeFlatWrap(const frmOptionsFlatWrap& dialog)
{
    TouchedRows touched;
    if (dialog.OKClicked()) {
        m_page.SetFlatWrap(dialog.FlatWrap());
        m_page.SetTilesPerUnit(dialog.TilesPerUnit());
        touched = {{Attribute::FlatWrapType}, {Attribute::TilesPerUnit}};
    }
    // Cancelled too: the preview is drawn anew after this dialog.
    Q_EMIT Edited(touched);
}

}  // namespace CorvexMaterial
