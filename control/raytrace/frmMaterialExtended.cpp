#include "frmMaterialExtended.h"

#include "AmountField.h"
#include "AttributeHints.h"
#include "DifferenceMark.h"
#include "PatternColours.h"
#include "RaytraceAmounts.h"
#include "RaytracedPreview.h"
#include "Swatch.h"
#include "Trap.h"
#include "WheelGuard.h"
#include "ui_frmMaterialExtended.h"
#include <CorvexMaterial/KeyboardAccess.h>
#include <CorvexMaterial/Looks.h>

#include <QStandardItemModel>

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr std::array kSwatchColours{
    Attribute::RaytraceColorPattern0Red, Attribute::RaytraceColorPattern1Red,
    Attribute::RaytraceColorPattern2Red, Attribute::RaytraceColorPattern3Red};

QString Caption(std::string_view name)
{
    return QString::fromUtf8(name);
}

template <typename Row>
QString Caption(const Row& row)
{
    return Caption(row.name);
}

template <typename Rows>
void FillList(QComboBox& list, const Rows& rows)
{
    for (const auto& row : rows) {
        list.addItem(Caption(row));
    }
}

/// A position that the list does not have is shown as its first.
void ShowPosition(QComboBox& list, std::int32_t position)
{
    list.setCurrentIndex(position >= 0 && position < list.count() ? position : 0);
}

}  // namespace

frmMaterialExtended::frmMaterialExtended(const RaytraceDialogServices& services,
                                         const CorvexDB::udtMaterial& material, QWidget* parent)
    : QDialog(parent), m_services(services), m_material(material),
      m_ui(std::make_unique<Ui::frmMaterialExtended>()),
      m_raytrace(services.host, services.platform, this, services.raytracers),
      m_wait(services.platform.processes, *this)
{
    m_ui->setupUi(this);
    GiveKeyboardAccess(*this);
    for (const QString& text : {tr("Raytraced"), tr("Live view")}) {
        m_ui->lblPicture->setMinimumWidth(std::max(m_ui->lblPicture->minimumWidth(),
                                                   fontMetrics().horizontalAdvance(text)));
    }
    m_swatches = {m_ui->picColorPattern_0, m_ui->picColorPattern_1, m_ui->picColorPattern_2,
                  m_ui->picColorPattern_3};
    m_followSoon.setSingleShot(true);
    // Without a picture the dialog still edits.
    m_services.trap("picPreview", [this] {
        m_picture.emplace(m_services.host, m_services.platform, m_raytrace,
                          m_services.preview.NewShape(), *m_ui->picPreview);
        connect(&*m_picture, &LivePicture::Shows, this, [this](bool raytraced) {
            m_ui->lblPicture->setText(raytraced ? tr("Raytraced") : tr("Live view"));
        });
    });
    FillLists();
    ConnectAmounts();
    ConnectSwatches();
    Connect();
    FollowRaytracer();
    GuardWheel(*this);
    QSizePolicy policy = m_ui->lblSameColors->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_ui->lblSameColors->setSizePolicy(policy);
}

frmMaterialExtended::~frmMaterialExtended() = default;

void frmMaterialExtended::FillLists()
{
    FillList(*m_ui->cboMaterialType, kMaterialTypeNames);
    FillList(*m_ui->cboPredefinedType, kPredefinedTypeNames);
    FillList(*m_ui->cboColorPattern, ColorPatternLooks());
    FillList(*m_ui->cboNormalPattern, NormalPatternLooks());
}

void frmMaterialExtended::ConnectAmounts()
{
    for (std::size_t i = 0; i < kRaytraceAmounts.size(); ++i) {
        const QString name = QString::fromUtf8(kRaytraceAmounts[i].slider);
        auto* slider = findChild<QSlider*>(name);
        auto* value = findChild<AmountField*>("txt" + name.mid(3));
        m_sliders[i] = {slider, value};
        const Attribute attribute = kRaytraceAmounts[i].attribute;
        OfferRange(*slider, attribute);
        TellOtherNames(*slider, attribute);
        value->setAccessibleName(slider->accessibleName());
        value->Input().SetRules(RulesOf(attribute));
        value->Input().ShowSlider(*slider);
        value->Input().DragOnLabels();
        connect(slider, &QSlider::valueChanged, this, [this, attribute] { Touch(attribute); });
        connect(&value->Input(), &NumberInput::Retaken, this, [this, value, attribute] {
            if (DifferenceMark::IsOn(*value)) {
                Touch(attribute);
            }
        });
    }
    TellOtherNames(*m_ui->chkMetallic, Attribute::RayTraceMetallic);
    connect(m_ui->chkMetallic, &QCheckBox::toggled, this,
            [this] { Touch(Attribute::RayTraceMetallic); });
}

void frmMaterialExtended::ConnectSwatches()
{
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        connect(m_swatches[i], &Swatch::clicked, this,
                [this, i] { m_services.trap("picColorPattern", [this, i] { ChooseColour(i); }); });
    }
}

void frmMaterialExtended::Connect()
{
    connect(m_ui->cboMaterialType, &QComboBox::currentIndexChanged, this,
            &frmMaterialExtended::OnMaterialType);
    connect(m_ui->cboPredefinedType, &QComboBox::currentIndexChanged, this,
            &frmMaterialExtended::OnPredefinedType);
    connect(m_ui->cboPreDefinedMaterial, &QComboBox::currentIndexChanged, this,
            [this] { Touch(Attribute::RaytracePredefinedMaterial); });
    connect(m_ui->cboColorPattern, &QComboBox::currentIndexChanged, this,
            &frmMaterialExtended::OnColorPattern);
    connect(m_ui->cboNormalPattern, &QComboBox::currentIndexChanged, this,
            &frmMaterialExtended::OnNormalPattern);
    // The entry that it has is one for other shapes.
    for (const auto& [list, attribute] : Lists()) {
        connect(list, &QComboBox::activated, this, [this, which = attribute] { Touch(which); });
    }
    connect(&m_followSoon, &QTimer::timeout, this, &frmMaterialExtended::Follow);
    connect(m_ui->cmdDefault, &QPushButton::clicked, this, &frmMaterialExtended::ShowDefaults);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmMaterialExtended::accept);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmMaterialExtended::reject);
    connect(m_ui->cmdPreview, &QPushButton::clicked, this,
            [this] { m_services.trap("cmdPreview", [this] { RaytracePicture(); }); });
}

void frmMaterialExtended::put_cdtRayTraceMaterialAttributes(
    const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    m_record = attributes;
    m_material.RayTrace = attributes;
    for (std::size_t i = 0; i < kRaytraceAmounts.size(); ++i) {
        const RaytraceAmount& amount = kRaytraceAmounts[i];
        const AttributeValue stored = RowOf(amount.attribute).path.get(m_material);
        m_sliders[i].slider->setValue(PositionOf(amount, std::get<float>(stored)));
    }
    ShowPosition(*m_ui->cboNormalPattern, attributes.NormalPattern);
    m_ui->chkMetallic->setChecked(attributes.Metallic);
    ShowPosition(*m_ui->cboMaterialType, attributes.MaterialType);
    ShowPosition(*m_ui->cboPredefinedType, attributes.PredefinedType);
    OnPredefinedType();
    ShowPosition(*m_ui->cboPreDefinedMaterial, attributes.PreDefinedMaterial);
    ShowPosition(*m_ui->cboColorPattern, attributes.ColorPattern);
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        m_swatches[i]->SetColour(ColourOfFractions(attributes.ColorPatternColor[i]));
    }
    // A list that showed this position already has told nobody.
    OnMaterialType();
    OnColorPattern();
    OnNormalPattern();
    m_touched.clear();
}

void frmMaterialExtended::Touch(Attribute attribute)
{
    m_touched.push_back({attribute});
    m_marks.TakeFromControlsOf(attribute);
    m_followSoon.start();
}

std::vector<QWidget*> frmMaterialExtended::ControlsOf(Attribute attribute) const
{
    for (std::size_t i = 0; i < kRaytraceAmounts.size(); ++i) {
        if (kRaytraceAmounts[i].attribute == attribute) {
            return {m_sliders[i].slider, m_sliders[i].value};
        }
    }
    constexpr int kFractions = 3;  // of a colour, one after the other
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        const int fraction = static_cast<int>(attribute) - static_cast<int>(kSwatchColours[i]);
        if (fraction >= 0 && fraction < kFractions) {
            return {m_swatches[i]};
        }
    }
    if (attribute == Attribute::RayTraceMetallic) {
        return {m_ui->chkMetallic};
    }
    for (const auto& [list, shown] : Lists()) {
        if (shown == attribute) {
            return {list};
        }
    }
    return {};
}

std::vector<std::pair<QComboBox*, Attribute>> frmMaterialExtended::Lists() const
{
    return {{m_ui->cboMaterialType, Attribute::RayTraceType},
            {m_ui->cboPredefinedType, Attribute::RaytracePredefinedType},
            {m_ui->cboPreDefinedMaterial, Attribute::RaytracePredefinedMaterial},
            {m_ui->cboColorPattern, Attribute::RaytraceColorPattern},
            {m_ui->cboNormalPattern, Attribute::RayTraceNormalPattern}};
}

void frmMaterialExtended::ReadControls()
{
    for (std::size_t i = 0; i < kRaytraceAmounts.size(); ++i) {
        RowOf(kRaytraceAmounts[i].attribute)
            .path.set(m_material, static_cast<float>(m_sliders[i].slider->value()));
    }
    CorvexDB::cdtRayTraceMaterialAttributes& record = m_material.RayTrace;
    record.NormalPattern = m_ui->cboNormalPattern->currentIndex();
    record.Metallic = m_ui->chkMetallic->isChecked();
    record.MaterialType = m_ui->cboMaterialType->currentIndex();
    record.PredefinedType = m_ui->cboPredefinedType->currentIndex();
    record.PreDefinedMaterial = m_ui->cboPreDefinedMaterial->currentIndex();
    record.ColorPattern = m_ui->cboColorPattern->currentIndex();
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        StoreFractions(record.ColorPatternColor[i], m_swatches[i]->Value());
    }
}

void frmMaterialExtended::ShowDefaults()
{
    for (std::size_t i = 0; i < kRaytraceAmounts.size(); ++i) {
        m_sliders[i].slider->setValue(DefaultPositionOf(kRaytraceAmounts[i]));
    }
    m_ui->chkMetallic->setChecked(false);
    for (QComboBox* list : {m_ui->cboNormalPattern, m_ui->cboMaterialType, m_ui->cboPredefinedType,
                            m_ui->cboPreDefinedMaterial, m_ui->cboColorPattern}) {
        list->setCurrentIndex(0);
    }
    for (Swatch* swatch : m_swatches) {
        swatch->SetColour(kWhite);
    }
    ShowSameColours();
    for (const AttributeRow& row : AttributeRows()) {
        if (row.group == AttributeGroup::Raytrace) {
            Touch(row.attribute);
        }
    }
}

void frmMaterialExtended::OnMaterialType()
{
    const bool custom =
        m_ui->cboMaterialType->currentIndex() == static_cast<int>(MaterialType::Custom);
    // Hidden first: both frames at once would make the form large for a moment.
    (custom ? m_ui->fraMaterial_1 : m_ui->fraMaterial_0)->hide();
    (custom ? m_ui->fraMaterial_0 : m_ui->fraMaterial_1)->show();
    Touch(Attribute::RayTraceType);
}

void frmMaterialExtended::OnPredefinedType()
{
    m_ui->cboPreDefinedMaterial->clear();
    FillList(*m_ui->cboPreDefinedMaterial,
             PredefinedLooks(m_ui->cboPredefinedType->currentIndex()));
    m_ui->cboPreDefinedMaterial->setCurrentIndex(0);
    Touch(Attribute::RaytracePredefinedType);
}

void frmMaterialExtended::OnColorPattern()
{
    if (m_ui->cboColorPattern->currentIndex() != static_cast<int>(ColorPattern::None)) {
        const PatternNeeds needs =
            NeedsOfColorPattern(m_ui->cboColorPattern->currentText().toStdString());
        for (std::size_t i = 0; i < m_swatchUsed.size(); ++i) {
            m_swatchUsed[i] = static_cast<int>(i) < needs.swatches;
        }
    }
    UpdateEnabled();
    Touch(Attribute::RaytraceColorPattern);
}

void frmMaterialExtended::OnNormalPattern()
{
    UpdateEnabled();
    Touch(Attribute::RayTraceNormalPattern);
}

void frmMaterialExtended::ChooseColour(std::size_t swatch)
{
    const Colour present = m_swatches[swatch]->Value();
    m_colours = m_services.platform.choosers.OpenColour(
        {present == 0 ? std::nullopt : std::optional(present), m_swatches[swatch],
         [this, swatch](Colour tried) { ShowColour(swatch, tried); },
         [this, swatch, present](std::optional<Colour> chosen) {
             ShowColour(swatch, chosen.value_or(present));
             if (chosen) {
                 Touch(kSwatchColours[swatch]);  // and with it the other fractions
             }
         }});
}

void frmMaterialExtended::ShowColour(std::size_t swatch, Colour colour)
{
    m_swatches[swatch]->SetColour(colour);
    ShowSameColours();
    m_followSoon.start();
}

void frmMaterialExtended::FollowRaytracer()
{
    struct Row {
        RaytraceOption option;
        std::initializer_list<QWidget*> widgets;
    };
    const std::initializer_list<Row> rows{
        {RaytraceOption::Brilliance,
         {m_ui->lblBrilliance, m_ui->sldBrilliance, m_ui->txtBrilliance}},
        {RaytraceOption::Reflection,
         {m_ui->lblReflection, m_ui->sldReflection, m_ui->txtReflection}},
        {RaytraceOption::Roughness, {m_ui->lblRoughness, m_ui->sldRoughness, m_ui->txtRoughness}},
        {RaytraceOption::Metallic, {m_ui->chkMetallic}},
        {RaytraceOption::Iridescence, {m_ui->fraIridescence}},
        {RaytraceOption::ColorPattern, {m_ui->fraColorPattern}},
        {RaytraceOption::NormalPattern, {m_ui->fraNormalPattern}},
        {RaytraceOption::PredefinedMaterial, {m_ui->fraPredefined}},
    };
    const RaytracerRow& raytracer =
        RowOf(m_services.host.applicationState.SelectedRaytracer(), m_services.raytracers);
    bool all = true;
    for (const Row& row : rows) {
        const bool honoured = Honours(raytracer, row.option);
        all = all && honoured;
        for (QWidget* widget : row.widgets) {
            widget->setEnabled(honoured);
        }
    }
    // The entry alone: who comes with a predefined material must be able to leave it.
    auto* types = qobject_cast<QStandardItemModel*>(m_ui->cboMaterialType->model());
    types->item(static_cast<int>(MaterialType::Predefined))
        ->setEnabled(Honours(raytracer, RaytraceOption::PredefinedMaterial));
    m_ui->lblNotHonored->setText(tr("Options that your raytracer cannot render are disabled."));
    m_ui->lblNotHonored->setVisible(!all);
}

void frmMaterialExtended::UpdateEnabled()
{
    const PatternNeeds needs =
        NeedsOfColorPattern(m_ui->cboColorPattern->currentText().toStdString());
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_ui->lblColorPatternFrequency, m_ui->sldColorPatternFrequency,
             m_ui->txtColorPatternFrequency, m_ui->lblColorPatternTurbulence,
             m_ui->sldColorPatternTurbulence, m_ui->txtColorPatternTurbulence}) {
        widget->setEnabled(needs.frequencyAndTurbulence);
    }
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        m_swatches[i]->setEnabled(m_swatchUsed[i]);
    }
    ShowSameColours();
    const bool bumpy =
        m_ui->cboNormalPattern->currentIndex() != static_cast<int>(NormalPattern::None);
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_ui->lblNormalPatternFrequency, m_ui->sldNormalPatternFrequency,
             m_ui->txtNormalPatternFrequency, m_ui->lblNormalPatternScale, m_ui->sldNormalScale,
             m_ui->txtNormalScale, m_ui->lblNormalPatternTurbulence,
             m_ui->sldNormalPatternTurbulence, m_ui->txtNormalPatternTurbulence}) {
        widget->setEnabled(bumpy);
    }
}

/// The default colours are all white, in which no pattern can be seen.
void frmMaterialExtended::ShowSameColours()
{
    bool same = m_ui->cboColorPattern->currentIndex() != static_cast<int>(ColorPattern::None);
    for (std::size_t i = 1; i < m_swatches.size(); ++i) {
        same = same && (!m_swatchUsed[i] || m_swatches[i]->Value() == m_swatches[0]->Value());
    }
    m_ui->lblSameColors->setVisible(same);
}

void frmMaterialExtended::Follow()
{
    if (m_picture) {
        ReadControls();
        m_services.trap("picPreview", [this] { m_picture->Show(m_material); });
    }
}

}  // namespace CorvexMaterial
