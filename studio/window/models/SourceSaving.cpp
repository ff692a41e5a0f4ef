#include "SourceSaving.h"

#include "Interchange.h"
#include "MaterialExchange.h"
#include "ModelOpener.h"
#include "OpenDocument.h"
#include "ScenePane.h"
#include "ShownText.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "WaitCursor.h"
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
    for (const ReportRow& row : report.Rows()) {
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

QString SourceSaving::QuestionOf(const SourcePatch& patch) const
{
    QStringList names;
    for (const PatchedFile& file : patch.files) {
        names << NameOf(file.path);
    }
    QString question = tr("Save the changed materials into %1? Nothing else in it changes.")
                           .arg(names.join(tr(" and ")));
    if (const QStringList losses = LossesOf(patch.report); !losses.isEmpty()) {
        question += QStringLiteral("\n\n") + tr("What it cannot hold is not written:") +
                    QStringLiteral("\n") + losses.join(u'\n');
    }
    return question;
}

void SourceSaving::Save(const QString& file, const ImportedModel& model)
{
    const std::string path = file.toStdString();
    // The window was alive while the model was read.
    if (path != m_parts.document.Source().path ||
        StateOf(m_parts.document.Source()) != SourceState::Unchanged) {
        return;
    }
    m_parts.messages.Telling([&] {
        const MaterialSource source = SourceOf(path, model);
        const StudioScene::Shapes& shapes = m_parts.scene.Scene().All();
        if (!AreOf(source, shapes)) {
            OfferReload(tr("The scene has other shapes than %1.").arg(NameOf(path)));
            return;
        }
        DressedShapes now;
        SourcePatch patch;
        {
            const WaitCursor waiting;
            now = DressedNow(source, shapes);
            patch = PatchOf(source, now);
        }
        const QString losses =
            m_parts.exchange.Keep(tr("Saved Back"), patch.report, now.materials.size());
        if (patch.files.empty()) {
            m_parts.messages.Show(losses.isEmpty()
                                      ? tr("%1 has these materials already.").arg(NameOf(path))
                                      : tr("%1 can hold nothing of what has changed. File > Last "
                                           "Report tells more.")
                                            .arg(NameOf(path)));
            return;
        }
        if (!m_parts.messages.Ask(QuestionOf(patch))) {
            return;
        }
        const WaitCursor waiting;
        m_parts.document.SourceWritten(SourceModelAt(path, SaveBack(source, now)));
        m_parts.messages.ShowAndLog(
            tr("The materials were saved back into %1. %2").arg(file, losses).trimmed());
    });
}

}  // namespace studio
