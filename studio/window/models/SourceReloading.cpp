#include "SourceReloading.h"

#include "Interchange.h"
#include "ModelOpener.h"
#include "ModelShapes.h"
#include "OpenDocument.h"
#include "OpeningReport.h"
#include "ScenePane.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "WaitCursor.h"
#include "WindowMessages.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QUndoStack>

#include <algorithm>

namespace studio {
namespace {

constexpr std::chrono::milliseconds kUntilWritten{500};

QString FileNameOf(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).fileName();
}

/// Other shapes with what was read, and those of the scene, listed behind what became of the
/// model's materials.
Report ReportOf(const ReloadedScene& reloaded, const ImportedModel& model)
{
    Report report = model.report;
    const auto add = [&report](const std::string& shape, Outcome outcome, const QString& note,
                               const QString& kind = {}) {
        report.Add({shape, "shape", outcome, note.toStdString(), kind.toStdString()});
    };
    for (const std::string& name : reloaded.removed) {
        add(name, Outcome::Dropped, SourceReloading::tr("is no longer in the model"));
    }
    for (const auto& [former, name] : reloaded.renamed) {
        add(name, Outcome::Approximated,
            SourceReloading::tr("was %1").arg(QString::fromStdString(former)),
            SourceReloading::tr("was %1").arg(QStringLiteral("...")));
    }
    for (const std::string& name : reloaded.added) {
        add(name, Outcome::Approximated, SourceReloading::tr("is new"));
    }
    return report;
}

}  // namespace

/// Already shown when it is pushed.
class SourceReloading::Step : public QUndoCommand {
public:
    Step(OpenDocument& document, ShownShapes before, ShownShapes after)
        : QUndoCommand(tr("Reload %1").arg(FileNameOf(after.source.path))), m_document(document),
          m_before(std::move(before)), m_after(std::move(after))
    {
    }

    void undo() override { m_document.Exchange(m_before); }
    void redo() override { m_document.Exchange(m_after); }

private:
    OpenDocument& m_document;
    ShownShapes m_before;
    ShownShapes m_after;
};

SourceReloading::SourceReloading(const Parts& parts, ImportProgram importer)
    : m_parts(parts), m_opener(new ModelOpener(parts.window, std::move(importer),
                                               parts.host.State().LibraryFolder()))
{
    m_opener->setParent(this);
    connect(m_opener, &ModelOpener::Opened, this, &SourceReloading::ShowModel);
    connect(m_opener, &ModelOpener::Refused, this, [this](const QString&, const QString& message) {
        m_parts.messages.Log(QStringLiteral("Not read again: ") + message);
        m_parts.messages.Tell(message);
    });
    m_look.setSingleShot(true);
    m_look.setInterval(kUntilWritten);
    connect(&m_look, &QTimer::timeout, this, &SourceReloading::LookAtFiles);
    const auto look = [this] { m_look.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, look);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, look);
    connect(&m_parts.document, &OpenDocument::SourceChanged, this, &SourceReloading::Watch);
}

void SourceReloading::AddTo(QMenu& menu)
{
    m_reload = menu.addAction(tr("Reloa&d Model"), QKeySequence(Qt::Key_F5), this,
                              &SourceReloading::Reload);
    m_reload->setStatusTip(tr("Reads the model again; materials stay"));
    menu.addAction(tr("Replace &Model..."), this, [this] { Choose(tr("Replace Model")); })
        ->setStatusTip(tr("Takes another model; shapes of the same name keep their materials"));
    Watch();
}

void SourceReloading::Reload()
{
    const SourceModel& source = m_parts.document.Source();
    if (StateOf(source) == SourceState::Missing) {
        Choose(tr("Find %1").arg(FileNameOf(source.path)));
    } else {
        Read(QString::fromStdString(source.path));
    }
}

void SourceReloading::Choose(const QString& title)
{
    const QString former = QString::fromStdString(m_parts.document.Source().path);
    const QString file = QFileDialog::getOpenFileName(
        &m_parts.window, title, former, tr("3D models (%1);;All files (*)").arg(ModelPatterns()));
    if (!file.isEmpty()) {
        Read(file);
    }
}

void SourceReloading::Read(const QString& file)
{
    m_opener->Open(file);
}

void SourceReloading::ShowModel(const QString& file, const ImportedModel& model)
{
    ReloadedScene reloaded;
    ShownShapes before;
    ShownShapes after;
    {
        const WaitCursor waiting;
        std::vector<ShapeState> read;
        for (const auto& shape : ShapesOf(model)) {
            read.push_back(shape->State());
        }
        reloaded = Reloaded(m_parts.document.Content(), std::move(read),
                            SourceModelAt(file.toStdString(), model.files));
        before = {m_parts.scene.Scene().All(), m_parts.scene.Selected().All(),
                  m_parts.document.Source()};
        for (const ShapeState& state : reloaded.content.shapes) {
            after.shapes.push_back(std::make_shared<StudioShape>(state));
        }
        for (const std::size_t place : reloaded.content.selection) {
            after.selected.push_back(after.shapes.at(place));
        }
        after.source = reloaded.content.source;
    }
    if (!reloaded.removed.empty() && !MayLose(reloaded.removed)) {
        return;
    }
    m_parts.history.push(new Step(m_parts.document, std::move(before), std::move(after)));
    TellOf(reloaded, model);
}

bool SourceReloading::MayLose(const std::vector<std::string>& removed)
{
    constexpr std::size_t kMostTold = 12;
    QStringList names;
    for (std::size_t i = 0; i < removed.size() && i < kMostTold; ++i) {
        names << QString::fromStdString(removed[i]);
    }
    if (removed.size() > kMostTold) {
        names << tr("and %1 more").arg(removed.size() - kMostTold);
    }
    return m_parts.messages.Ask(
        tr("The model does not have these shapes any more, and they go with "
           "their materials:\n%1\n\nTake it over all the same?")
            .arg(names.join(u'\n')));
}

void SourceReloading::TellOf(const ReloadedScene& reloaded, const ImportedModel& model)
{
    const std::size_t kept = reloaded.content.shapes.size() - reloaded.added.size();
    m_parts.report.Tell(tr("Model Reloaded"), ReportOf(reloaded, model),
                        tr("Kept: %1 (renamed: %2), added: %3, removed: %4.")
                            .arg(kept)
                            .arg(reloaded.renamed.size())
                            .arg(reloaded.added.size())
                            .arg(reloaded.removed.size()));
    m_parts.messages.Log(tr("Reloaded %1").arg(FileNameOf(reloaded.content.source.path)));
}

void SourceReloading::Watch()
{
    const QString file = QString::fromStdString(m_parts.document.Source().path);
    if (m_reload != nullptr) {
        m_reload->setEnabled(!file.isEmpty());
    }
    if (const QStringList watched = m_watcher.files() + m_watcher.directories();
        !watched.isEmpty()) {
        m_watcher.removePaths(watched);
    }
    if (!file.isEmpty()) {
        LookAtFiles();
    }
}

/// A file that takes another's place is watched anew; as long as there is none, its folder is.
void SourceReloading::LookAtFiles()
{
    const SourceModel& source = m_parts.document.Source();
    if (source.path.empty()) {
        return;
    }
    const SourceModel now = SourceNow(source);
    const auto watch = [this](const FileStamp& file) {
        const QString path = QString::fromStdString(file.path);
        m_watcher.addPath(file.modified == 0 ? QFileInfo(path).path() : path);
    };
    watch(now);
    std::ranges::for_each(now.others, watch);
    if (now != source && now != m_told) {
        const QString text =
            now.modified != 0
                ? tr("%1 has changed on the disk. File > Reload Model reads the model again.")
                : tr("The model %1 is not there any more. File > Reload Model looks for it.");
        m_parts.messages.ShowAndLog(text.arg(FileNameOf(ChangedFileOf(source))));
    }
    m_told = now;
}

}  // namespace studio
