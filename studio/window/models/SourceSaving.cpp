#include "SourceSaving.h"

#include "FileWork.h"
#include "FileWriting.h"
#include "Interchange.h"
#include "MaterialExchange.h"
#include "ModelOpener.h"
#include "OpenDocument.h"
#include "SavingBack.h"
#include "ScenePane.h"
#include "ShownText.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "WindowMessages.h"

#include <QAction>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>

namespace studio {
namespace {

constexpr qsizetype kMostLossesShown = 12;

QString NameOf(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).fileName();
}

/// In the words of the report, the first of them.
QStringList LossesOf(const Report& report)
{
    QStringList losses;
    for (const ReportRow& row : LossesIn(report)) {
        if (row.outcome == Outcome::Dropped) {
            losses << QString::fromStdString(row.material + ": " + row.property + ", " + row.note);
        }
    }
    if (losses.size() > kMostLossesShown) {
        const qsizetype more = losses.size() - kMostLossesShown;
        losses = losses.first(kMostLossesShown);
        losses << SourceSaving::tr("and %1 more.").arg(more);
    }
    return losses;
}

QString QuestionOf(const SourcePatch& patch)
{
    QStringList names;
    for (const PatchedFile& file : patch.files) {
        names << NameOf(file.path);
    }
    QString question =
        SourceSaving::tr("Save the changed materials into %1? Nothing else in it changes.")
            .arg(names.join(SourceSaving::tr(" and ")));
    if (const QStringList losses = LossesOf(patch.report); !losses.isEmpty()) {
        question += QStringLiteral("\n\n") +
                    SourceSaving::tr("What it cannot hold is not written:") + QStringLiteral("\n") +
                    losses.join(u'\n');
    }
    return question;
}

}  // namespace

SourceSaving::SourceSaving(const Parts& parts, ImportProgram importer)
    : QObject(&parts.window), m_parts(parts),
      m_opener(
          new ModelOpener(parts.window, std::move(importer), parts.host.State().LibraryFolder()))
{
    m_opener->setParent(this);
    connect(m_opener, &ModelOpener::Opened, this, &SourceSaving::Save);
    connect(m_opener, &ModelOpener::Refused, this,
            [this](const QString&, const QString& message) { m_parts.messages.Tell(message); });
    connect(&m_parts.document, &OpenDocument::SourceChanged, this, &SourceSaving::ShowName);
}

void SourceSaving::AddTo(QMenu& menu)
{
    m_action = menu.addAction({}, this, &SourceSaving::Begin);
    m_action->setObjectName(QStringLiteral("saveBack"));
    m_action->setStatusTip(tr("Writes the changed materials into the model itself"));
    ShowName();
}

void SourceSaving::ShowName()
{
    if (m_action == nullptr) {
        return;
    }
    const std::string& model = m_parts.document.Source().path;
    const bool isTaken = TakesMaterialsBack(model);
    m_action->setText(isTaken ? tr("Save &Back into \"%1\"...").arg(MenuCaption(NameOf(model)))
                              : tr("Save &Back"));
    m_action->setEnabled(isTaken);
}

void SourceSaving::Begin()
{
    const SourceModel& source = m_parts.document.Source();
    switch (StateOf(source)) {
    case SourceState::None:
        break;
    case SourceState::Missing:
        m_parts.messages.Tell(
            tr("There is no file %1 any more.").arg(QString::fromStdString(source.path)));
        break;
    case SourceState::Changed:
        OfferReload(tr("%1 has changed on the disk since it was read, and is left as it is.")
                        .arg(NameOf(ChangedFileOf(source))));
        break;
    case SourceState::Unchanged:
        m_opener->Open(QString::fromStdString(source.path));
        break;
    }
}

void SourceSaving::OfferReload(const QString& reason)
{
    if (m_parts.messages.Ask(reason + QStringLiteral("\n\n") +
                             tr("Reload the model? Its shapes keep their materials, and these can "
                                "be saved back then."))) {
        Q_EMIT ReloadWanted();
    }
}

/// What is worked on beside the window.
struct SourceSaving::Job {
    MaterialSource source;
    bool isOfScene = false;
    DressedShapes now;
    SourcePatch patch;
    std::vector<std::string> others;  ///< files that the source is read with
};

void SourceSaving::Save(const QString& file, const ImportedModel& model)
{
    const std::string path = file.toStdString();
    // The window was alive while the model was read: another one may be shown by now, or the file
    // be another.
    if (path != m_parts.document.Source().path) {
        return;
    }
    if (StateOf(m_parts.document.Source()) != SourceState::Unchanged) {
        Begin();
        return;
    }
    const auto job = std::make_shared<Job>();
    m_parts.work.Start(
        tr("Comparing with %1...").arg(NameOf(path)),
        [job, path, model,
         shapes = CopiesOf(m_parts.scene.Scene().All())](const std::stop_token& stop) {
            job->source = SourceOf(path, model);
            job->isOfScene = AreOf(job->source, shapes);
            if (job->isOfScene) {
                job->now = DressedNow(job->source, shapes);
                job->patch = PatchOf(job->source, job->now);
            }
            CorvexMaterial::ThrowIfStopped(stop);
        },
        [this, job] { Ask(job); });
}

void SourceSaving::Ask(const std::shared_ptr<Job>& job)
{
    const QString name = NameOf(job->source.path);
    if (!job->isOfScene) {
        OfferReload(tr("The scene has other shapes than %1.").arg(name));
        return;
    }
    const QString losses =
        m_parts.exchange.Keep(tr("Saved Back"), job->patch.report, job->now.materials.size());
    if (!job->patch.files.empty()) {
        if (m_parts.messages.Ask(QuestionOf(job->patch))) {
            Write(job, losses);
        }
        return;
    }
    m_parts.messages.Show(losses.isEmpty()
                              ? tr("%1 has these materials already.").arg(name)
                              : tr("%1 can hold nothing of what has changed. File > Last Report "
                                   "tells more.")
                                    .arg(name));
}

void SourceSaving::Write(const std::shared_ptr<Job>& job, const QString& losses)
{
    const std::string& path = job->source.path;
    m_parts.work.Start(
        tr("Writing %1...").arg(NameOf(path)),
        [job](const std::stop_token& stop) { job->others = SaveBack(job->source, job->now, stop); },
        [this, job, losses, path] {
            // Another document may be shown by now.
            if (m_parts.document.Source().path == path) {
                m_parts.document.SourceWritten(SourceModelAt(path, job->others));
            }
            m_parts.messages.ShowAndLog(tr("The materials were saved back into %1. %2")
                                            .arg(QString::fromStdString(path), losses)
                                            .trimmed());
        });
}

}  // namespace studio
