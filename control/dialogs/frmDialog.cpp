#include "frmDialog.h"

#include "ErrorTexts.h"
#include "ui_frmDialog.h"
#include <CorvexMaterial/KeyboardAccess.h>
#include <CorvexMaterial/WarningCatalogue.h>

#include <QStyle>

namespace CorvexMaterial {

frmDialog::frmDialog(SettingsStore& settings, CorvexDB::Diagnostics& diagnostics,
                     WarningRequest request, QWidget* parent)
    : QDialog(parent), m_settings(settings), m_diagnostics(diagnostics),
      m_request(std::move(request)), m_ui(std::make_unique<Ui::frmDialog>())
{
    m_diagnostics.DebugTrace("Loading Dialog Form");
    m_ui->setupUi(this);
    GiveKeyboardAccess(*this);
    setWindowTitle(
        QString::fromStdString(m_request.title.empty() ? std::string(kBoxTitle) : m_request.title));
    const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    m_ui->lblIcon->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(iconSize, iconSize));
    constexpr int kTextWidth = 56;  // of average letters
    m_ui->lblWarning->setFixedWidth(kTextWidth * fontMetrics().averageCharWidth());
    m_ui->lblWarning->setText(QString::fromStdString(m_request.sWarning));
    m_ui->chkContinueToReceiveWarning->setChecked(true);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmDialog::~frmDialog() = default;

void frmDialog::Unload()
{
    m_settings.Write({m_request.sApplicationRegistryKey, std::string(kTipsSection),
                      m_request.sWarningRegistryEntry},
                     TextOfWarningChoice(m_ui->chkContinueToReceiveWarning->isChecked()));
    m_diagnostics.DebugTrace("Unloading Dialog Form");
    m_settings.Flush(m_request.sApplicationRegistryKey);
}

}  // namespace CorvexMaterial
