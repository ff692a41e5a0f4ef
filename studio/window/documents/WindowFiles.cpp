#include "WindowFiles.h"

#include "DocumentMenu.h"
#include "FileOpening.h"
#include "MaterialExchange.h"
#include "ModelFiles.h"
#include "OpenDocument.h"
#include "OpeningReport.h"
#include "PanelDock.h"
#include "PanelLibraries.h"
#include "ScenePane.h"
#include "SourceReload.h"
#include "SourceReloading.h"
#include "SourceSaving.h"
#include "StudioHost.h"
#include "TextureKeeping.h"
#include "WindowMessages.h"
#include "WorkRecovery.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>

namespace studio {

WindowFiles::WindowFiles(const Parts& parts, const ImportProgram& importer)
    : m_parts(parts), m_report(std::make_unique<OpeningReport>(
                          OpeningReport::Parts{parts.messages, parts.scene, parts.exchange})),
      m_document(std::make_unique<OpenDocument>(
          OpenDocument::Parts{parts.host, parts.scene, parts.history, parts.work})),
      m_menu(std::make_unique<DocumentMenu>(
          DocumentMenu::Parts{*m_document, parts.messages, parts.window})),
      m_models(
          std::make_unique<ModelFiles>(ModelFiles::Parts{parts.host, parts.messages, parts.scene,
                                                         *m_document, *m_menu, parts.window},
                                       importer)),
      m_reloading(std::make_unique<SourceReloading>(
          SourceReloading::Parts{parts.host, parts.messages, parts.scene, *m_document,
                                 parts.history, *m_report, parts.window},
          importer)),
      m_recovery(std::make_unique<WorkRecovery>(WorkRecovery::Parts{
          parts.host, parts.messages, parts.scene, parts.history, *m_document, parts.window})),
      m_opening(std::make_unique<FileOpening>(parts.host.Settings(), parts.window)),
      m_saving(std::make_unique<SourceSaving>(
          SourceSaving::Parts{parts.host, parts.messages, parts.scene, *m_document, parts.exchange,
                              parts.work, parts.window},
          importer)),
      m_keeping(std::make_unique<TextureKeeping>(TextureKeeping::Parts{
          *m_document, *m_menu, parts.work, parts.messages, parts.scene, parts.panel.Link()}))
{
    ConnectOpening();
    ConnectOutcomes();
}

WindowFiles::~WindowFiles() = default;

bool WindowFiles::MayGo()
{
    return m_menu->MayGo();
}

bool WindowFiles::BeginAnew()
{
    const bool mayGo = MayGo();
    if (mayGo) {
        m_models->ShowDefaultScene();
    }
    return mayGo;
}

void WindowFiles::ConnectOpening()
{
    m_opening->AcceptDropsOn(m_parts.window);
    // A floating panel is a window of its own, but what is dropped on it is for this one.
    m_opening->AcceptDropsOn(m_parts.panel.Dock());
    connect(m_opening.get(), &FileOpening::DocumentWanted, m_menu.get(), &DocumentMenu::Open);
    connect(m_opening.get(), &FileOpening::LibraryWanted, &m_parts.libraries,
            &PanelLibraries::Open);
    connect(m_opening.get(), &FileOpening::MaterialsWanted, &m_parts.exchange,
            &MaterialExchange::Import);
    connect(m_opening.get(), &FileOpening::ModelWanted, this, [this](const QString& file) {
        if (MayGo()) {
            m_models->Open(file);
        }
    });
    connect(m_recovery.get(), &WorkRecovery::BaseWanted, this, [this](const QString& file) {
        if (!file.isEmpty()) {
            m_opening->Open(file);
        } else if (BeginAnew()) {
            m_recovery->TakeUp(file);
        }
    });
}

void WindowFiles::ConnectOutcomes()
{
    connect(m_saving.get(), &SourceSaving::ReloadWanted, m_reloading.get(),
            &SourceReloading::Reload);
    connect(m_document.get(), &OpenDocument::NotBackedUp, &m_parts.messages, &WindowMessages::Tell);
    const auto opened = [this](const QString& file) {
        m_opening->Remember(file);
        m_recovery->TakeUp(file);
        Q_EMIT SceneOpened();
    };
    const auto refused = [this](const QString& file, const QString& message) {
        m_opening->Forget(file);
        m_recovery->GiveUp();
        Q_EMIT SceneRefused(message);
    };
    connect(m_models.get(), &ModelFiles::Opened, this,
            [this, opened](const QString& file, const ImportedModel& model) {
                m_report->Tell(tr("Model Opened"), model.report);
                opened(file);
            });
    connect(m_models.get(), &ModelFiles::Refused, this, refused);
    connect(m_menu.get(), &DocumentMenu::Opened, this,
            [this, opened](const QString& file, const QStringList& problems) {
                QStringList notes;
                if (const QString reason = m_document->ReadOnlyReason(); !reason.isEmpty()) {
                    notes << tr("Read-only: %1.").arg(reason);
                }
                if (StateOf(m_document->Source()) == SourceState::Missing) {
                    notes << tr("The model is missing. File > Reload Model looks for it.");
                }
                m_report->Tell(tr("Document Opened"), problems, notes.join(u' '));
                opened(file);
            });
    connect(m_menu.get(), &DocumentMenu::Refused, this, refused);
    connect(m_menu.get(), &DocumentMenu::Saved, m_opening.get(), &FileOpening::Remember);
}

void WindowFiles::AddTo(QMenu& file)
{
    file.addAction(tr("&New"), QKeySequence::New, this, &WindowFiles::BeginAnew)
        ->setStatusTip(tr("Begins with the scene that the studio starts with"));
    m_opening->AddTo(file);
    file.addSeparator();
    m_menu->AddTo(file);
    m_saving->AddTo(file);
    m_reloading->AddTo(file);
    m_recovery->AddTo(file);
    file.addSeparator();
    m_keeping->AddTo(file);
}

}  // namespace studio
