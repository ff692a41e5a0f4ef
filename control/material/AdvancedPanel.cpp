#include "AdvancedPanel.h"

#include "AmountField.h"
#include "WheelGuard.h"
#include "ui_AdvancedPanel.h"
#include <CorvexMaterial/AlphaTests.h>
#include <CorvexMaterial/Schema.h>

#include <QSignalBlocker>

namespace CorvexMaterial {

AdvancedPanel::AdvancedPanel(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::AdvancedPanel>())
{
    m_ui->setupUi(this);
    m_ui->txtAlphaTestReference->Hold(Attribute::AlphaTestReference);
    m_ui->txtAlphaTestReference->Input().DragOn(*m_ui->lblAlphaTest);
    FillAlphaTests();
    // Partially ticked is set by program only, so a click must not pass through it.
    connect(m_ui->chkApplyRelative, &QCheckBox::stateChanged, this, [this](int state) {
        m_ui->chkApplyRelative->setTristate(state == Qt::PartiallyChecked);
    });
    connect(m_ui->cboAlphaTest, &QComboBox::currentIndexChanged, this,
            &AdvancedPanel::FollowAlphaTest);
    connect(m_ui->cmdAdvancedOptionsResetDefaults, &QToolButton::clicked, this,
            &AdvancedPanel::ResetPressed);
    GuardWheel(*this);
}

AdvancedPanel::~AdvancedPanel() = default;

void AdvancedPanel::FillAlphaTests()
{
    const QSignalBlocker quiet(m_ui->cboAlphaTest);
    const int position = std::max(0, m_ui->cboAlphaTest->currentIndex());
    m_ui->cboAlphaTest->clear();
    for (const std::string_view name : kAlphaTestNames) {
        m_ui->cboAlphaTest->addItem(QString::fromUtf8(name));
    }
    m_ui->cboAlphaTest->setCurrentIndex(position);
    FollowAlphaTest();
}

void AdvancedPanel::FollowAlphaTest()
{
    m_ui->txtAlphaTestReference->setEnabled(m_ui->cboAlphaTest->currentIndex() > kAlphaTestNever);
}

}  // namespace CorvexMaterial
