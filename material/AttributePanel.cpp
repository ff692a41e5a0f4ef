#include "material/AttributePanel.h"

#include "dialogs/Trap.h"
#include "material/AlphaTests.h"
#include "material/AttributeText.h"
#include "material/Attributes.h"
#include "controls/WheelGuard.h"
#include "ui_AttributePanel.h"

#include <QSignalBlocker>

namespace CorvexMaterial {

namespace {

constexpr std::array kAlphaChannelUses{"Standard", "Ignore", "Bump Map", "Specular Map",
                                       "Environment Map"};

QString ToText(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

AttributePanel::AttributePanel(const Trap& trap, Choosers& choosers, QWidget* parent)
    : QWidget(parent), m_trap(trap), m_choosers(choosers),
      m_ui(std::make_unique<Ui::AttributePanel>())
{
    m_ui->setupUi(this);
    FillLists();
    ConnectColor();
    ConnectAmounts();
    ConnectFlags();
    ConnectButtons();
    GuardWheel(*this);
}

AttributePanel::~AttributePanel() = default;

void AttributePanel::FillLists()
{
    FillAlphaTests();
    for (const char* use : kAlphaChannelUses) {
        m_ui->cboTextureAlphaChannelUse->addItem(QString::fromUtf8(use));
    }
}

void AttributePanel::FillAlphaTests()
{
    const QSignalBlocker quiet(m_ui->cboAlphaTest);
    const int position = std::max(0, m_ui->cboAlphaTest->currentIndex());
    m_ui->cboAlphaTest->clear();
    for (const std::string_view name : kAlphaTestNames) {
        m_ui->cboAlphaTest->addItem(ToText(name));
    }
    m_ui->cboAlphaTest->setCurrentIndex(position);
    FollowAlphaTest();
}

void AttributePanel::ConnectColor()
{
    m_color = new ColourField({*m_ui->cboColor, *m_ui->picVBColor, *m_ui->cmdSelectColor}, this);
    connect(m_color, &ColourField::Edited, this, &AttributePanel::Edited);
    connect(m_color, &ColourField::EntryChosen, this, [this](int position) {
        m_trap("cboColor", [&] { m_color->ChooseEntry(position, m_choosers); });
    });
    connect(m_color, &ColourField::DialogWanted, this,
            [this] { m_trap("cmdSelectColor", [&] { m_color->ChooseFromDialog(m_choosers); }); });
}

void AttributePanel::ConnectAmounts()
{
    struct Row {
        AmountField& field;
        QSlider* slider;
        Attribute attribute;
    };
    const std::array rows{
        Row{*m_ui->txtAmbient, m_ui->sldAmbient, Attribute::Ambient},
        Row{*m_ui->txtEmissive, m_ui->sldEmissive, Attribute::Emissive},
        Row{*m_ui->txtSpecular, m_ui->sldSpecular, Attribute::Specular},
        Row{*m_ui->txtTransparency, m_ui->sldTransparency, Attribute::Transparency},
        Row{*m_ui->txtAlphaTestReference, nullptr, Attribute::AlphaTestReference},
        Row{*m_ui->txtTexture2Translucency, nullptr, Attribute::OverlayTranslucency},
    };
    for (const Row& row : rows) {
        const QString factory = ToText(FactoryText(row.attribute));
        row.field.SetFallback(factory);
        row.field.setText(factory);
        if (row.slider != nullptr) {
            LinkSlider(*row.slider, row.field);
        }
        connect(&row.field, &QLineEdit::textChanged, this, &AttributePanel::Edited);
    }
}

void AttributePanel::LinkSlider(QSlider& slider, AmountField& field)
{
    const auto follow = [&slider, &field] {
        const QSignalBlocker quiet(&slider);
        slider.setValue(WholeNumberFromText(field.text().toStdString()).value_or(slider.value()));
    };
    follow();
    slider.setAccessibleName(field.objectName().mid(3));
    connect(&field, &QLineEdit::textChanged, &slider, follow);
    connect(&slider, &QSlider::valueChanged, &field,
            [&field](int value) { field.setText(QString::number(value)); });
}

void AttributePanel::ConnectFlags()
{
    for (QCheckBox* flag :
         {m_ui->chkDoubleSided, m_ui->chkFlipU, m_ui->chkFlipV, m_ui->chkApplyRelative}) {
        connect(flag, &QCheckBox::clicked, this, &AttributePanel::Edited);
    }
    // Partially ticked is set by program only, so a click must not pass through it.
    connect(m_ui->chkApplyRelative, &QCheckBox::stateChanged, this, [this](int state) {
        m_ui->chkApplyRelative->setTristate(state == Qt::PartiallyChecked);
    });
    connect(m_ui->chkAlphaIsTransparent, &QCheckBox::clicked, this,
            &AttributePanel::AlphaIsTransparentClicked);
    connect(m_ui->cboAlphaTest, &QComboBox::currentIndexChanged, this,
            &AttributePanel::FollowAlphaTest);
    connect(m_ui->cboAlphaTest, &QComboBox::activated, this, &AttributePanel::Edited);
    connect(m_ui->cboTextureAlphaChannelUse, &QComboBox::currentIndexChanged, this,
            &AttributePanel::Edited);
}

void AttributePanel::ConnectButtons()
{
    connect(m_ui->cmdMaterialRemember, &QPushButton::clicked, this,
            &AttributePanel::RememberPressed);
    connect(m_ui->cmdMaterialResetUserDefaults, &QPushButton::clicked, this,
            &AttributePanel::UserDefaultsPressed);
    connect(m_ui->cmdMaterialResetDefaults, &QPushButton::clicked, this,
            &AttributePanel::FactoryDefaultsPressed);
    connect(m_ui->cmdMiscellaneousResetToDefaults, &QToolButton::clicked, this,
            &AttributePanel::MiscellaneousResetPressed);
    connect(m_ui->cmdAdvancedOptionsResetDefaults, &QToolButton::clicked, this,
            &AttributePanel::AdvancedResetPressed);
}

void AttributePanel::FollowAlphaTest()
{
    m_ui->txtAlphaTestReference->setEnabled(m_ui->cboAlphaTest->currentIndex() > 0);
}

}  // namespace CorvexMaterial
