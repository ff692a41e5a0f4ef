#include "material/SurfacePanel.h"

#include "controls/AmountField.h"
#include "controls/AttributeHints.h"
#include "controls/WheelGuard.h"
#include "dialogs/Trap.h"
#include "material/AmountLink.h"
#include "record/Schema.h"
#include "ui_SurfacePanel.h"

namespace CorvexMaterial {

SurfacePanel::SurfacePanel(const Trap& trap, Choosers& choosers, QWidget* parent)
    : QWidget(parent), m_trap(trap), m_choosers(choosers),
      m_ui(std::make_unique<Ui::SurfacePanel>())
{
    m_ui->setupUi(this);
    ConnectColor();
    ConnectAmounts();
    connect(m_ui->cmdMiscellaneousResetToDefaults, &QToolButton::clicked, this,
            &SurfacePanel::ResetPressed);
    GuardWheel(*this);
}

SurfacePanel::~SurfacePanel() = default;

void SurfacePanel::ConnectColor()
{
    m_color = new ColourField({*m_ui->cboColor, *m_ui->picVBColor, *m_ui->cmdSelectColor}, this);
    connect(m_color, &ColourField::Edited, this, [this] { Q_EMIT Edited({{Attribute::Color}}); });
    connect(m_color, &ColourField::EntryChosen, this, [this](int position) {
        m_trap("cboColor", [&] { m_color->ChooseEntry(position, m_choosers); });
    });
    connect(m_color, &ColourField::DialogWanted, this,
            [this] { m_trap("cmdSelectColor", [&] { m_color->ChooseFromDialog(m_choosers); }); });
}

void SurfacePanel::ConnectAmounts()
{
    struct Row {
        AmountField& field;
        QSlider& slider;
        Attribute attribute;
    };
    const std::array rows{
        Row{*m_ui->txtAmbient, *m_ui->sldAmbient, Attribute::Ambient},
        Row{*m_ui->txtEmissive, *m_ui->sldEmissive, Attribute::Emissive},
        Row{*m_ui->txtSpecular, *m_ui->sldSpecular, Attribute::Specular},
        Row{*m_ui->txtTransparency, *m_ui->sldTransparency, Attribute::Transparency},
    };
    for (const Row& row : rows) {
        row.field.setText(QString::fromUtf8(FactoryText(row.attribute)));
        OfferRange(row.slider, row.attribute);
        TellOtherNames(row.slider, row.attribute);
        LinkSlider(row.slider, row.field);
        connect(&row.field, &QLineEdit::textChanged, this,
                [this, row] { Q_EMIT Edited(row.field.Touched(row.attribute)); });
    }
}

void SurfacePanel::SetAmountsEnabled(bool enabled)
{
    const std::initializer_list<QWidget*> amounts{
        m_ui->lblAmbient,      m_ui->sldAmbient,      m_ui->txtAmbient,
        m_ui->lblEmissive,     m_ui->sldEmissive,     m_ui->txtEmissive,
        m_ui->lblTransparency, m_ui->sldTransparency, m_ui->txtTransparency,
        m_ui->sldSpecular,     m_ui->txtSpecular,     m_ui->lblSpecularHighlighting};
    for (QWidget* widget : amounts) {
        widget->setEnabled(enabled);
    }
}

}  // namespace CorvexMaterial
