#include "OptionsDialog.h"

#include "DocumentBackup.h"
#include "RaytracerField.h"
#include "SettingNames.h"
#include "StudioSettings.h"
#include "ui_OptionsDialog.h"
#include <CorvexMaterial/SettingsNames.h>

#include <QApplication>
#include <QFileDialog>
#include <QPainter>

namespace studio {

using CorvexMaterial::kBackgroundMaterialKey;
using CorvexMaterial::kBackgroundTextureKey;

namespace {

/// Of the libraries and of what is drawn, until the user has chosen his own. The control's are
/// nearly white, which glares in a dark window.
struct Ground {
    CorvexMaterial::Colour library;
    CorvexMaterial::Colour view;
};

constexpr Ground kDarkGround{0x2D2926, 0x453D38};
constexpr Ground kLightGround{0xFBFAF9, 0xD8D2CC};

const Ground& DefaultGround()
{
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return isDark ? kDarkGround : kLightGround;
}

/// A default of the other theme has not been chosen by anybody.
CorvexMaterial::Colour Followed(CorvexMaterial::Colour kept, CorvexMaterial::Colour Ground::*part)
{
    return kept == kDarkGround.*part || kept == kLightGround.*part ? DefaultGround().*part : kept;
}

QColor Shown(CorvexMaterial::Colour colour)
{
    const auto bytes = CorvexMaterial::BytesOf(colour);
    return {bytes.red, bytes.green, bytes.blue};
}

void PaintSwatch(QPushButton* button, CorvexMaterial::Colour colour)
{
    // The right end stays empty: a gap to the text.
    const qreal ratio = button->devicePixelRatioF();
    QPixmap swatch(button->iconSize() * ratio);
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(Qt::transparent);
    QPainter painter(&swatch);
    painter.setPen(button->palette().color(QPalette::PlaceholderText));
    painter.setBrush(Shown(colour));
    painter.drawRect(QRectF(QPointF(0.5, 0.5), QSizeF(button->iconSize()) - QSizeF(9, 1)));
    painter.end();
    button->setIcon(swatch);
    button->setText(Shown(colour).name());
}

}  // namespace

StudioColours ReadColours(const StudioSettings& settings)
{
    const Ground& ground = DefaultGround();
    const auto view = [&](const char* key) {
        return Followed(settings.Number(key, ground.view), &Ground::view);
    };
    const auto library = [&](const char* key) {
        return Followed(settings.LibraryBackground(key, ground.library), &Ground::library);
    };
    return {view(kPreviewBackgroundSetting), view(kViewportBackgroundSetting),
            library(kBackgroundMaterialKey), library(kBackgroundTextureKey)};
}

void ProvideColours(StudioSettings& settings)
{
    const StudioColours colours = ReadColours(settings);
    settings.SetLibraryBackground(kBackgroundMaterialKey, colours.materialLibrary);
    settings.SetLibraryBackground(kBackgroundTextureKey, colours.textureLibrary);
}

NavigationPreset ReadNavigation(const StudioSettings& settings)
{
    return PresetOf(settings.Number(kNavigationSetting, 0));
}

OptionsDialog::OptionsDialog(StudioSettings& settings, CorvexMaterial::ProcessStarter& processes,
                             CorvexMaterial::Choosers& choosers, QWidget* parent,
                             std::span<const SceneWriter> raytracers)
    : QDialog(parent), m_settings(settings), m_ui(std::make_unique<Ui::OptionsDialog>()),
      m_colours(ReadColours(settings)), m_choosers(choosers)
{
    m_ui->setupUi(this);
    AddRaytracers(raytracers, processes);
    ShowSettings();
    BindColour(m_ui->viewportColour, &StudioColours::viewport);
    BindColour(m_ui->previewColour, &StudioColours::preview);
    BindColour(m_ui->materialColour, &StudioColours::materialLibrary);
    BindColour(m_ui->textureColour, &StudioColours::textureLibrary);
    connect(m_ui->theme, &QComboBox::currentIndexChanged, this, &OptionsDialog::ThemeShown);
    connect(m_ui->navigation, &QComboBox::currentIndexChanged, this,
            &OptionsDialog::ShowNavigation);
    connect(m_ui->customFields, &QPlainTextEdit::textChanged, this, &OptionsDialog::ShowMoves);
    connect(m_ui->moveFields, &QCheckBox::toggled, this, &OptionsDialog::ShowMoves);
    connect(m_ui->addFolder, &QPushButton::clicked, this, &OptionsDialog::AddFolder);
    connect(m_ui->removeFolder, &QPushButton::clicked, this,
            [this] { delete m_ui->folders->currentItem(); });
    connect(m_ui->folders, &QListWidget::currentRowChanged, m_ui->removeFolder,
            [this](int row) { m_ui->removeFolder->setEnabled(row >= 0); });
}

OptionsDialog::~OptionsDialog() = default;

void OptionsDialog::ShowSettings()
{
    m_ui->theme->setCurrentIndex(
        std::clamp(m_settings.Number(kThemeSetting, 0), 0, m_ui->theme->count() - 1));
    for (const NavigationPreset preset : kNavigationPresets) {
        m_ui->navigation->addItem(TitleOf(preset));
        m_ui->navigation->setItemData(static_cast<int>(preset), HintOf(preset), Qt::ToolTipRole);
    }
    m_ui->navigation->setCurrentIndex(static_cast<int>(ReadNavigation(m_settings)));
    ShowNavigation();
    m_ui->linkMaterials->setChecked(m_settings.Number(kLinkSetting, 0) != 0);
    m_ui->antialias->setCurrentIndex(std::clamp(m_settings.Number(kAntialiasSetting, 1), 0, 2));
    const int raytracer = m_settings.Number(kRaytracerSetting, 0);
    m_ui->raytracer->setCurrentIndex(std::max(0, m_ui->raytracer->findData(raytracer)));
    m_ui->folders->addItems(m_settings.List(kSearchFoldersSetting));
    m_fields = m_settings.List(kCustomFieldsSetting, Qt::KeepEmptyParts);
    m_ui->customFields->setPlainText(m_fields.join(u'\n'));
    ShowMoves();
    m_ui->backups->SetNumbers({0, kMostBackups, 1, kBackupsKept, kMostBackups, true});
    m_ui->backups->ShowText(QString::number(m_settings.Number(kBackupsSetting, kBackupsKept)));
    m_ui->backups->DragOn(*m_ui->label8);
    m_ui->supportSite->setText(m_settings.Text(kSupportSiteSetting));
}

void OptionsDialog::ShowNavigation()
{
    m_ui->navigationHint->setText(HintOf(PresetOf(m_ui->navigation->currentIndex())));
}

void OptionsDialog::ShowBackupFolder(const QString& folder)
{
    m_ui->backupsHint->setText(
        tr("Before a document is saved for the first time, it is copied as it "
           "was. The copies are in\n%1")
            .arg(folder));
}

// The n-th name is that of the n-th value in every material: an empty line keeps its place.
QStringList OptionsDialog::FieldNames() const
{
    return m_ui->customFields->toPlainText().split(u'\n').mid(0, CorvexDB::kCustomFieldCount);
}

FieldMoves OptionsDialog::Moves() const
{
    return m_ui->moveFields->isChecked() ? MovesOf(m_fields, FieldNames()) : kNoFieldMoves;
}

void OptionsDialog::ShowMoves()
{
    m_ui->moveFields->setVisible(MovesOf(m_fields, FieldNames()) != kNoFieldMoves);
    const QString note = NoteOn(Moves(), m_fields, FieldNames());
    m_ui->fieldsNote->setText(note);
    m_ui->fieldsNote->setVisible(!note.isEmpty());
}

void OptionsDialog::AddRaytracers(std::span<const SceneWriter> raytracers,
                                  CorvexMaterial::ProcessStarter& processes)
{
    for (const SceneWriter& writer : raytracers) {
        const CorvexMaterial::RaytracerRow& row = *writer.raytracer;
        m_ui->raytracer->addItem(tr(row.name.data()), static_cast<int>(row.kind));
        auto* field =
            new RaytracerField(writer, processes, m_settings.RaytracerProgram(row.program), this);
        m_ui->raytracingTabLayout->addRow(tr(row.program.label.data()), field);
        m_raytracers.push_back(field);
    }
}

void OptionsDialog::BindColour(QPushButton* button, CorvexMaterial::Colour StudioColours::*colour)
{
    PaintSwatch(button, m_colours.*colour);
    connect(button, &QPushButton::clicked, this, [this, button, colour] {
        const CorvexMaterial::Colour before = m_colours.*colour;
        const auto show = [this, button, colour](CorvexMaterial::Colour tried) {
            ShowColour(button, colour, tried);
        };
        m_picking = m_choosers.OpenColour(
            {before, button, show, [show, before](std::optional<CorvexMaterial::Colour> chosen) {
                 show(chosen.value_or(before));
             }});
    });
}

void OptionsDialog::ShowColour(QPushButton* button, CorvexMaterial::Colour StudioColours::*which,
                               CorvexMaterial::Colour colour)
{
    m_colours.*which = colour;
    PaintSwatch(button, colour);
    Q_EMIT ColoursTried(m_colours);
}

void OptionsDialog::AddFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Search Folder"));
    if (!folder.isEmpty() && m_ui->folders->findItems(folder, Qt::MatchExactly).isEmpty()) {
        m_ui->folders->addItem(folder);
    }
}

void OptionsDialog::Store() const
{
    QStringList folders;
    for (int row = 0; row < m_ui->folders->count(); ++row) {
        folders << m_ui->folders->item(row)->text();
    }
    m_settings.SetNumber(kPreviewBackgroundSetting, m_colours.preview);
    m_settings.SetNumber(kViewportBackgroundSetting, m_colours.viewport);
    m_settings.SetLibraryBackground(kBackgroundMaterialKey, m_colours.materialLibrary);
    m_settings.SetLibraryBackground(kBackgroundTextureKey, m_colours.textureLibrary);
    if (m_ui->theme->currentIndex() != m_settings.Number(kThemeSetting, 0)) {
        m_settings.SetNumber(kThemeSetting, m_ui->theme->currentIndex());
    }
    if (m_ui->navigation->currentIndex() != static_cast<int>(ReadNavigation(m_settings))) {
        m_settings.SetNumber(kNavigationSetting, m_ui->navigation->currentIndex());
    }
    if (m_ui->linkMaterials->isChecked() != (m_settings.Number(kLinkSetting, 0) != 0)) {
        m_settings.SetNumber(kLinkSetting, m_ui->linkMaterials->isChecked() ? 1 : 0);
    }
    m_settings.SetNumber(kAntialiasSetting, m_ui->antialias->currentIndex());
    m_ui->backups->Commit();
    const int backups = std::clamp(static_cast<int>(m_ui->backups->Value()), 0, kMostBackups);
    if (backups != m_settings.Number(kBackupsSetting, kBackupsKept)) {
        m_settings.SetNumber(kBackupsSetting, backups);
    }
    m_settings.SetNumber(kRaytracerSetting, m_ui->raytracer->currentData().toInt());
    for (const RaytracerField* field : m_raytracers) {
        m_settings.SetRaytracerProgram(field->Raytracer().program, field->Text());
    }
    m_settings.SetList(kSearchFoldersSetting, folders);
    m_settings.SetList(kCustomFieldsSetting, FieldNames());
    m_settings.SetText(kSupportSiteSetting, m_ui->supportSite->text().trimmed());
    m_settings.Flush();
}

}  // namespace studio
