#include "SurfacePanel.h"

#include "AmountField.h"
#include "AttributeHints.h"
#include "Trap.h"
#include "WheelGuard.h"
#include "ui_SurfacePanel.h"
#include <CorvexMaterial/Schema.h>

namespace CorvexMaterial {

SurfacePanel::SurfacePanel(const Trap& trap, Choosers& choosers, Trial& trial, QWidget* parent)
    : QWidget(parent), m_trap(trap), m_ui(std::make_unique<Ui::SurfacePanel>())
{
    m_ui->setupUi(this);
    ConnectColor(choosers, trial);
    ConnectAmounts();
    connect(m_ui->cmdMiscellaneousResetToDefaults, &QToolButton::clicked, this,
            &SurfacePanel::ResetPressed);
    GuardWheel(*this);
}

SurfacePanel::~SurfacePanel() = default;

void SurfacePanel::ConnectColor(Choosers& choosers, Trial& trial)
{
    m_color = new ColourField({*m_ui->cboColor, *m_ui->picVBColor, *m_ui->cmdSelectColor}, choosers,
                              trial, this);
    TellOtherNames(*m_ui->cboColor, Attribute::Color);
    connect(m_color, &ColourField::EntryChosen, this,
            [this](int position) { m_trap("cboColor", [&] { m_color->ChooseEntry(position); }); });
    connect(m_color, &ColourField::DialogWanted, this, [this](QWidget* beside) {
        m_trap("cmdSelectColor", [&] { m_color->ChooseFromDialog(*beside); });
    });
}

std::vector<SurfacePanel::Amount> SurfacePanel::Amounts() const
{
    return {{Attribute::Ambient, *m_ui->txtAmbient, *m_ui->sldAmbient, *m_ui->lblAmbient},
            {Attribute::Emissive, *m_ui->txtEmissive, *m_ui->sldEmissive, *m_ui->lblEmissive},
            {Attribute::Specular, *m_ui->txtSpecular, *m_ui->sldSpecular,
             *m_ui->lblSpecularHighlighting},
            {Attribute::Transparency, *m_ui->txtTransparency, *m_ui->sldTransparency,
             *m_ui->lblTransparency}};
}

void SurfacePanel::ConnectAmounts()
{
    for (const Amount& amount : Amounts()) {
        amount.field.Hold(amount.attribute);
        OfferRange(amount.slider, amount.attribute);
        TellOtherNames(amount.slider, amount.attribute);
        amount.field.Input().LinkSlider(amount.slider);
    }
}

void SurfacePanel::SetAmountsEnabled(bool enabled)
{
    for (const Amount& amount : Amounts()) {
        amount.field.setEnabled(enabled);
        amount.slider.setEnabled(enabled);
        amount.label.setEnabled(enabled);
    }
}

}  // namespace CorvexMaterial
