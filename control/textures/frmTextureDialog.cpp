#include "frmTextureDialog.h"

#include "TextureMessages.h"
#include "Trap.h"
#include "ui_frmTextureDialog.h"
#include <CorvexMaterial/KeyboardAccess.h>
#include <CorvexMaterial/SettingsNames.h>

#include <QFileInfo>
#include <QPushButton>
#include <QShowEvent>

namespace CorvexMaterial {

frmTextureDialog::frmTextureDialog(const Trap& trap, ChannelServices services, QWidget* parent)
    : QDialog(parent), m_trap(trap), m_services(services),
      m_textures(services.host.textureLibrary.Textures()),
      m_ui(std::make_unique<Ui::frmTextureDialog>()), m_selectedTexture(kNothingChosen)
{
    m_ui->setupUi(this);
    GiveKeyboardAccess(*this);
    const QFileInfo library(QString::fromStdString(m_services.owner.TextureLibraryFile()));
    setWindowTitle(tr("Select Texture - %1").arg(library.fileName()));
    m_ui->cmdOK->setEnabled(false);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    AddBrowser();
}

frmTextureDialog::~frmTextureDialog()
{
    m_trap("frmTextureDialog", [this] { m_browser->SetListener(nullptr); });
}

void frmTextureDialog::AddBrowser()
{
    m_browser =
        m_services.host.editports.CreateEditport(this, CorvexEditport::BrowserKind::Textures);
    QWidget& widget = m_browser->Widget();
    widget.setObjectName(QStringLiteral("dfeTextureDialog"));
    if (QWidget* companion = m_browser->Companion(); companion != nullptr) {
        m_ui->browser->addWidget(companion);
    }
    m_ui->browser->addWidget(&widget, 1);
    m_browser->ShowItems(m_textures.Count());
    m_browser->SetListener(this);
}

void frmTextureDialog::SetBackColor(Colour colour)
{
    m_browser->SetBackColor(colour);
}

void frmTextureDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        m_trap("frmTextureDialog", [this] { Forget(); });
    }
    QDialog::showEvent(event);
}

// Every showing begins without a choice.
void frmTextureDialog::Forget()
{
    m_selectedTexture = kNothingChosen;
    m_ui->cmdOK->setEnabled(false);
    m_browser->ReleaseSelection();
}

void frmTextureDialog::ItemSelected(std::int32_t index)
{
    m_trap("frmTextureDialog", [&] { Choose(index); });
}

void frmTextureDialog::ItemOpened(std::int32_t index)
{
    m_trap("frmTextureDialog", [&] {
        Choose(index);
        accept();
    });
}

void frmTextureDialog::Choose(std::int32_t index)
{
    m_selectedTexture = m_textures.FileAt(index);
    m_ui->cmdOK->setEnabled(true);
}

void frmTextureDialog::done(int result)
{
    if (result != Accepted) {
        m_selectedTexture = kNothingChosen;
    } else if (m_selectedTexture != kNothingChosen) {
        m_trap("frmTextureDialog", [this] { RecordSelection(); });
    }
    QDialog::done(result);
}

void frmTextureDialog::RecordSelection()
{
    m_services.platform.settings.Write({m_services.host.applicationState.SettingsApplicationName(),
                                        kApplicationSection, std::string(kSelectionCompleteKey)},
                                       "1");
}

}  // namespace CorvexMaterial
