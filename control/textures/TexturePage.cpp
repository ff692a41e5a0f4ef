#include "TexturePage.h"

#include "ArgumentChecks.h"
#include "AttributeHints.h"
#include "ChannelIcons.h"
#include "DifferenceMark.h"
#include "PlacementPanel.h"
#include "TextureThumbnail.h"
#include "TextureWrap.h"
#include "WheelGuard.h"
#include "ui_TexturePage.h"

#include <QButtonGroup>
#include <QScopedValueRollback>

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr std::array kLayerTitles{QT_TRANSLATE_NOOP("TexturePage", "Primary texture"),
                                  QT_TRANSLATE_NOOP("TexturePage", "Overlay texture"),
                                  QT_TRANSLATE_NOOP("TexturePage", "Alpha map"),
                                  QT_TRANSLATE_NOOP("TexturePage", "Bump map"),
                                  QT_TRANSLATE_NOOP("TexturePage", "Specular map"),
                                  QT_TRANSLATE_NOOP("TexturePage", "Environment map")};
static_assert(kLayerTitles.size() == kTextureLayerCount);

constexpr std::array kAlphaChannelUses{"Standard", "Ignore", "Bump Map", "Specular Map",
                                       "Environment Map"};

constexpr std::array kWrapSigns{ChannelSign::SphericalWrap, ChannelSign::FlatWrap,
                                ChannelSign::CylindricalWrap};
constexpr std::array kWrapTags{"", "Flat", ""};
static_assert(kWrapSigns.size() == kWrapTitles.size() && kWrapTags.size() == kWrapTitles.size());

}  // namespace

TexturePage::TexturePage(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::TexturePage>()),
      m_cache(std::make_unique<ThumbnailCache>()), m_placing(new PlacementPanel(this))
{
    m_ui->setupUi(this);
    m_ui->column->addWidget(m_placing);
    setTabOrder(m_ui->chkFlipV, m_placing);
    AddThumbnails();
    AddWraps();
    for (const char* use : kAlphaChannelUses) {
        m_ui->cboTextureAlphaChannelUse->addItem(QString::fromUtf8(use));
    }
    m_ui->txtTexture2Translucency->Hold(Attribute::OverlayTranslucency);
    TellOtherNames(*m_ui->txtTexture2Translucency, Attribute::OverlayTranslucency);
    m_ui->lblWrapType->setBuddy(m_ui->optWrapType_0);
    TellOtherNames(*m_ui->lblWrapType, Attribute::WrapType);
    TellOtherNames(*m_ui->cmdFlatWrapOptions, Attribute::FlatWrapType);
    TellOtherNames(*m_ui->chkFlipU, Attribute::WrapOrientationU);
    TellOtherNames(*m_ui->chkFlipV, Attribute::WrapOrientationV);
    ConnectFields();
    ConnectButtons();
    GuardWheel(*this);
    ShowFields(std::nullopt);
    ShowThumbnail(std::nullopt);
}

TexturePage::~TexturePage() = default;

void TexturePage::AddThumbnails()
{
    for (const TextureLayerRow& row : kTextureLayers) {
        auto* thumbnail = new TextureThumbnail(*m_cache, row.layer, this);
        thumbnail->setObjectName(QStringLiteral("imgTexture_%1").arg(row.image));
        thumbnail->setAccessibleName(tr(kLayerTitles[static_cast<std::size_t>(row.layer)]));
        m_thumbnails[static_cast<std::size_t>(row.layer)] = thumbnail;
        m_ui->thumbnails->addWidget(thumbnail);
        setTabOrder(this, thumbnail);
        connect(thumbnail, &QAbstractButton::clicked, this, &TexturePage::SelectPressed);
        connect(thumbnail, &TextureThumbnail::FileDropped, this, &TexturePage::FileDropped);
        connect(thumbnail, &TextureThumbnail::LayerDropped, this,
                [this, to = row.layer](TextureLayer from, Transfer transfer) {
                    Q_EMIT LayerDropped(from, to, transfer);
                });
    }
}

void TexturePage::AddWraps()
{
    m_wraps = new QButtonGroup(this);
    const std::array buttons{m_ui->optWrapType_0, m_ui->optWrapType_1, m_ui->optWrapType_2};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        WrapButton* button = buttons[i];
        button->setCheckable(true);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setIcon(ChannelIcon(kWrapSigns[i]));
        button->setIconSize({20, 20});
        button->setToolTip(tr(kWrapTitles[i]));
        button->setAccessibleName(tr(kWrapTitles[i]));
        button->setProperty("tag", QString::fromUtf8(kWrapTags[i]));
        m_wraps->addButton(button, static_cast<int>(i));
        connect(button, &WrapButton::RightReleased, this, [this, button] {
            if (button->property("tag").toString() == "Flat") {
                Q_EMIT FlatWrapOptionsWanted();
            }
        });
    }
    m_wraps->button(0)->setChecked(true);
}

void TexturePage::ConnectFields()
{
    const auto edited = [this](Attribute attribute) {
        return [this, attribute] { EmitEdited({{attribute}}); };
    };
    connect(m_wraps, &QButtonGroup::idClicked, this, edited(Attribute::WrapType));
    connect(m_ui->chkFlipU, &QCheckBox::clicked, this, edited(Attribute::WrapOrientationU));
    connect(m_ui->chkFlipV, &QCheckBox::clicked, this, edited(Attribute::WrapOrientationV));
    connect(m_ui->cboTextureAlphaChannelUse, &QComboBox::currentIndexChanged, this,
            edited(Attribute::TextureAlphaChannelUse));
    connect(m_placing, &PlacementPanel::Edited, this, &TexturePage::EmitEdited);
    connect(m_ui->txtTexture2Translucency, &QLineEdit::textChanged, this, [this] {
        EmitEdited(m_ui->txtTexture2Translucency->Touched(Attribute::OverlayTranslucency));
    });
    connect(&m_ui->txtTexture2Translucency->Input(), &NumberInput::Retaken, this, [this] {
        if (DifferenceMark::IsOn(*m_ui->txtTexture2Translucency)) {
            EmitEdited({{Attribute::OverlayTranslucency}});
        }
    });
}

void TexturePage::ConnectButtons()
{
    connect(m_ui->cmdSelectTexture, &QPushButton::clicked, this, [this] {
        if (m_shown) {
            Thumbnail(*m_shown).click();
        }
    });
    connect(m_ui->cmdTexture, &QPushButton::clicked, this, &TexturePage::CropPressed);
    connect(m_ui->cmdDeleteTexture, &QPushButton::clicked, this, &TexturePage::DeletePressed);
    connect(m_ui->cmdFlatWrapOptions, &QToolButton::clicked, this,
            &TexturePage::FlatWrapOptionsWanted);
}

TextureThumbnail& TexturePage::Thumbnail(TextureLayer layer) const
{
    return *m_thumbnails[static_cast<std::size_t>(layer)];
}

template <typename Change>
void TexturePage::Quietly(Change&& change)
{
    const QScopedValueRollback<bool> quiet(m_quiet, true);
    change();
}

void TexturePage::EmitEdited(const TouchedRows& touched)
{
    if (!m_quiet) {
        Q_EMIT Edited(touched);
    }
}

const std::string& TexturePage::File(TextureLayer layer) const
{
    return Thumbnail(layer).File();
}

void TexturePage::SetFile(TextureLayer layer, const std::string& file)
{
    Thumbnail(layer).SetFile(file);
    if (layer == m_shown) {
        ShowFileName();
    }
    Q_EMIT FilesChanged();
}

CorvexDB::TextureFiles TexturePage::Files() const
{
    CorvexDB::TextureFiles files;
    for (const TextureLayerRow& row : kTextureLayers) {
        files.*row.file = File(row.layer);
    }
    return files;
}

void TexturePage::SetPlacement(const CorvexDB::TexturePlacement& placement)
{
    m_placement = placement;
    for (const TextureLayerRow& row : kTextureLayers) {
        if (row.layer != TextureLayer::Environment) {  // which surrounds the scene
            Thumbnail(row.layer).SetCrop(placement);
        }
    }
}

bool TexturePage::BeginsAnew(TextureLayer layer, const std::string& file) const
{
    const bool isAlone = std::ranges::all_of(kTextureLayers, [&](const TextureLayerRow& row) {
        return row.layer == layer || File(row.layer).empty();
    });
    return file != File(layer) && (layer == TextureLayer::Primary || isAlone);
}

TouchedRows TexturePage::ForgetPlacement()
{
    TouchedRows touched;
    if (!(m_placement == CorvexDB::TexturePlacement()) || DifferenceMark::IsOn(*m_ui->cmdTexture)) {
        SetPlacement({});
        touched.push_back({Attribute::OriginU});  // and with it the other three
    }
    if (m_tilesPerUnit != 1.0F && Wrap() == CorvexDB::WrapType::Flat) {
        m_tilesPerUnit = 1.0F;
        touched.push_back({Attribute::TilesPerUnit});
    }
    return touched;
}

CorvexDB::WrapType TexturePage::Wrap() const
{
    return static_cast<CorvexDB::WrapType>(m_wraps->checkedId());
}

void TexturePage::SetWrap(CorvexDB::WrapType wrap)
{
    CheckPosition(static_cast<std::int32_t>(wrap), kWrapTitles.size(), "WrapType");
    m_wraps->button(static_cast<int>(wrap))->setChecked(true);
}

void TexturePage::SetFlatWrap(CorvexDB::FlatWrapType flatWrap)
{
    CheckPosition(static_cast<std::int32_t>(flatWrap), kFlatWrapTitles.size(), "FlatWrapType");
    m_flatWrap = flatWrap;
}

int TexturePage::AlphaChannelUse() const
{
    return m_ui->cboTextureAlphaChannelUse->currentIndex();
}

void TexturePage::SetAlphaChannelUse(int position)
{
    CheckPosition(position, kAlphaChannelUses.size(), "TextureAlphaChannelUse");
    Quietly([&] { m_ui->cboTextureAlphaChannelUse->setCurrentIndex(position); });
}

int TexturePage::AlphaChannelUseCount()
{
    return static_cast<int>(kAlphaChannelUses.size());
}

bool TexturePage::FlipU() const
{
    return m_ui->chkFlipU->isChecked();
}

void TexturePage::SetFlipU(bool flip)
{
    m_ui->chkFlipU->setChecked(flip);
}

bool TexturePage::FlipV() const
{
    return m_ui->chkFlipV->isChecked();
}

void TexturePage::SetFlipV(bool flip)
{
    m_ui->chkFlipV->setChecked(flip);
}

std::int32_t TexturePage::OverlayTranslucency() const
{
    return m_ui->txtTexture2Translucency->Value();
}

std::string TexturePage::OverlayTranslucencyText() const
{
    return m_ui->txtTexture2Translucency->text().toStdString();
}

void TexturePage::SetOverlayTranslucencyText(const std::string& text)
{
    Quietly([&] { m_ui->txtTexture2Translucency->setText(QString::fromStdString(text)); });
}

QWidget& TexturePage::CropButton() const
{
    return *m_ui->cmdTexture;
}

QWidget& TexturePage::FlatWrapButton() const
{
    return *m_ui->cmdFlatWrapOptions;
}

std::vector<QWidget*> TexturePage::ControlsOf(Attribute attribute) const
{
    for (const TextureLayerRow& row : kTextureLayers) {
        if (FileOf(row.layer) == attribute) {
            return {&Thumbnail(row.layer)};
        }
    }
    if (PlacementPanel::Has(attribute)) {
        return {m_placing->FieldOf(attribute)};
    }
    switch (attribute) {
    case Attribute::OverlayTranslucency:
        return {m_ui->txtTexture2Translucency};
    case Attribute::TextureAlphaChannelUse:
        return {m_ui->cboTextureAlphaChannelUse};
    case Attribute::WrapOrientationU:
        return {m_ui->chkFlipU};
    case Attribute::WrapOrientationV:
        return {m_ui->chkFlipV};
    case Attribute::WrapType:
        return {m_ui->optWrapType_0, m_ui->optWrapType_1, m_ui->optWrapType_2};
    default:
        break;
    }
    switch (RowOf(attribute).group) {
    case AttributeGroup::Placement:
        return {m_ui->cmdTexture};
    case AttributeGroup::Wrap:
        return {m_ui->cmdFlatWrapOptions};
    default:
        return {};
    }
}

void TexturePage::ShowFields(std::optional<TextureLayer> layer)
{
    const bool overlay = layer == TextureLayer::Overlay;
    m_ui->lblTexture2Translucency->setVisible(overlay);
    m_ui->txtTexture2Translucency->setVisible(overlay);
    const bool primary = layer == TextureLayer::Primary;
    m_ui->lblTextureAlphaChannelUse->setVisible(primary);
    m_ui->cboTextureAlphaChannelUse->setVisible(primary);
}

void TexturePage::ShowThumbnail(std::optional<TextureLayer> layer)
{
    for (TextureThumbnail* thumbnail : m_thumbnails) {
        thumbnail->setVisible(false);
    }
    m_shown = layer;
    UpdateEnabled();
    if (layer) {
        m_ui->lblLayer->setText(tr(kLayerTitles[static_cast<std::size_t>(*layer)]));
        Thumbnail(*layer).setVisible(true);
        RefreshThumbnail();
    }
}

void TexturePage::ShowFileName()
{
    if (!m_shown) {
        return;
    }
    if (DifferenceMark::IsOn(Thumbnail(*m_shown))) {
        m_ui->lblTextureFile->SetFile({}, MultipleValues());
    } else {
        m_ui->lblTextureFile->SetFile(QString::fromStdString(File(*m_shown)), tr("No texture"));
    }
}

void TexturePage::RebuildThumbnails()
{
    m_cache->Clear();
    for (TextureThumbnail* thumbnail : m_thumbnails) {
        thumbnail->Refresh();
    }
}

void TexturePage::RefreshThumbnail()
{
    if (m_shown) {
        Thumbnail(*m_shown).Refresh();
        ShowFileName();
    }
}

bool TexturePage::IsEnabled(TextureLayer layer) const
{
    return Thumbnail(layer).isEnabled();
}

void TexturePage::DragLayerFrom(TextureLayer layer, QWidget& widget)
{
    if (IsEnabled(layer)) {
        Thumbnail(layer).DragFrom(widget);
    }
}

void TexturePage::SetLayersEnabled(bool enabled)
{
    m_layersEnabled = enabled;
    UpdateEnabled();
}

void TexturePage::SetPrimaryLocked(bool locked)
{
    m_primaryLocked = locked;
    UpdateEnabled();
}

void TexturePage::UpdateEnabled()
{
    for (const TextureLayerRow& row : kTextureLayers) {
        const bool locked = row.layer == TextureLayer::Primary && m_primaryLocked;
        Thumbnail(row.layer).setEnabled(m_layersEnabled && !locked);
    }
    const bool shownLocked = m_shown == TextureLayer::Primary && m_primaryLocked;
    m_ui->cmdSelectTexture->setEnabled(m_layersEnabled && !shownLocked);
    m_ui->cmdDeleteTexture->setEnabled(m_layersEnabled && !shownLocked);
}

}  // namespace CorvexMaterial
