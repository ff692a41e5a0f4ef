#include "WorkRecovery.h"

#include "OpenDocument.h"
#include "RecoveryDialog.h"
#include "ScenePane.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"

#include <QFileDialog>
#include <QMainWindow>
#include <QMenu>
#include <QUndoStack>

#include <algorithm>

namespace studio {
namespace {

/// Until the picture shows what was edited.
constexpr std::chrono::milliseconds kPictureAge{1500};
constexpr std::chrono::milliseconds kNextLook{1500};

std::string StateFolder(StudioHost& host)
{
    return host.State().Profile().stateFolder.toStdString();
}

}  // namespace

WorkRecovery::WorkRecovery(const Parts& parts)
    : m_parts(parts), m_journal(StateFolder(parts.host), [this](const std::string& message) {
          const QString text = tr("What you edit is not kept for the case of a crash: %1")
                                   .arg(QString::fromStdString(message));
          QMetaObject::invokeMethod(
              this, [this, text] { m_parts.messages.ShowAndLog(text); }, Qt::QueuedConnection);
      })
{
    m_picture.setSingleShot(true);
    m_picture.setInterval(kPictureAge);
    connect(&m_picture, &QTimer::timeout, this, [this] {
        // What somebody only tries on a shape is no work to be kept.
        if (std::ranges::any_of(m_parts.scene.Scene().All(), &StudioShape::ShowsAnother)) {
            m_picture.start();
        } else {
            m_journal.Show(m_parts.scene.Viewport().Picture());
        }
    });
    // Whoever is killed just after he has saved is offered nothing older than what he saved.
    connect(&m_parts.document, &OpenDocument::AboutToSave, this,
            [this](const QString& file, qint64 mark) {
                m_journal.Flush({file.toStdString(), mark});
            });
    connect(&m_parts.document, &OpenDocument::Settled, this, &WorkRecovery::Begin);
    connect(&m_parts.document, &OpenDocument::SourceChanged, this, [this] {
        if (m_parts.document.Path().isEmpty()) {
            m_journal.SetBase(Base());
        }
    });
    connect(&m_parts.history, &QUndoStack::indexChanged, this,
            [this](int index) { Record(index > 0 ? m_parts.history.text(index - 1) : QString()); });
    connect(&m_parts.document, &OpenDocument::TexturesChosen, this, [this] {
        const bool areInside = m_parts.document.Textures() == TexturePlace::Embedded;
        Record(areInside ? tr("Keep Textures in Document") : tr("Keep Textures beside Document"));
    });
}

void WorkRecovery::AddTo(QMenu& menu)
{
    QAction* recover = menu.addAction(tr("Recover &Unsaved Work..."), this, [this] {
        m_wanted.reset();
        LeftJournals journals = FindLeftJournals(StateFolder(m_parts.host));
        if (journals.found.empty() && journals.refused.empty()) {
            m_parts.messages.Show(tr("There is no unsaved work to recover."));
        } else {
            ShowDialog(std::move(journals));
        }
    });
    recover->setStatusTip(tr("Shows work that was not saved when the program ended"));
}

JournalBase WorkRecovery::Base() const
{
    const QString path = m_parts.document.Path();
    const std::string& model = m_parts.document.Source().path;
    using Kind = JournalBase::Kind;
    if (!path.isEmpty()) {
        return BaseAt(Kind::Document, path.toStdString());
    }
    return BaseAt(model.empty() ? Kind::DefaultScene : Kind::Model, model);
}

JournalAround WorkRecovery::Around() const
{
    return {m_parts.document.Textures(), m_parts.scene.Views().All()};
}

void WorkRecovery::Begin()
{
    m_journal.Begin(Base(), m_parts.document.Name().toStdString(), m_parts.scene.Scene().All(),
                    Around());
}

void WorkRecovery::Record(const QString& what, int edits)
{
    m_journal.Record(m_parts.scene.Scene().All(), Around(), m_parts.scene.Viewport().Camera(),
                     what.toStdString(), edits);
    m_picture.start();
}

void WorkRecovery::Leave()
{
    m_journal.Leave();
}

void WorkRecovery::Offer(int looks)
{
    LeftJournals journals = FindLeftJournals(StateFolder(m_parts.host));
    for (const std::string& refusal : journals.refused) {
        m_parts.messages.ShowAndLog(QString::fromStdString(refusal));
    }
    if (!journals.found.empty()) {
        ShowDialog(std::move(journals));
    } else if (journals.held > 0 && looks > 1) {
        // Started again at once, one may be there before the killed program has gone.
        QTimer::singleShot(kNextLook, this, [this, looks] { Offer(looks - 1); });
    }
}

void WorkRecovery::ShowDialog(LeftJournals journals)
{
    auto* dialog = new RecoveryDialog(std::move(journals), &m_parts.window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { Open(dialog->TakeChosen()); });
    dialog->open();
}

void WorkRecovery::Open(LeftJournal journal)
{
    m_wantedFile = QString::fromStdString(journal.Head().base.file.path);
    if (journal.BaseIsMissing()) {
        const QFileInfo missing(m_wantedFile);
        const QString found = QFileDialog::getOpenFileName(
            &m_parts.window, tr("Find %1").arg(missing.fileName()), missing.path());
        m_wantedFile = QFileInfo(found).canonicalFilePath();
        if (m_wantedFile.isEmpty()) {
            return;
        }
    }
    m_wanted = std::move(journal);
    Q_EMIT BaseWanted(m_wantedFile);
}

void WorkRecovery::TakeUp(const QString& file)
{
    if (!m_wanted || file != m_wantedFile) {
        m_wanted.reset();
        return;
    }
    LeftJournal journal = std::move(*m_wanted);
    m_wanted.reset();
    std::vector<std::string> problems;
    m_parts.document.TakeOver(journal.Restored(m_parts.document.Content(), problems));
    Record(QString::fromStdString(journal.Edits().what), journal.Edits().count);
    TellOf(journal, problems);
    // Not before it is somewhere else.
    if (m_journal.Flush()) {
        journal.Discard();
    }
}

void WorkRecovery::TellOf(const LeftJournal& journal, const std::vector<std::string>& problems)
{
    QStringList told{tr("Recovered: %1. Its changes are not saved yet.")
                         .arg(QString::fromStdString(journal.Head().name))};
    if (problems.empty() && !journal.BaseIsChanged()) {
        m_parts.messages.ShowAndLog(told.front());
        return;
    }
    if (journal.BaseIsChanged()) {
        told << tr("%1 has changed since. Materials were put on the shapes of the same name.")
                    .arg(m_wantedFile);
    }
    constexpr std::size_t kMostTold = 20;
    for (std::size_t i = 0; i < std::min(problems.size(), kMostTold); ++i) {
        told << QString::fromStdString(problems[i]);
    }
    if (problems.size() > kMostTold) {
        told << tr("And %1 more; the event log has all.").arg(problems.size() - kMostTold);
    }
    for (const std::string& problem : problems) {
        m_parts.messages.Log(QString::fromStdString(problem));
    }
    m_parts.messages.Inform(told.join(u'\n'));
}

}  // namespace studio
