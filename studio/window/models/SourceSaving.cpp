#include "SourceSaving.h"

#include "Interchange.h"
#include "MaterialExchange.h"
#include "ScenePane.h"
#include "ShownText.h"
#include "WaitCursor.h"
#include "WindowMessages.h"

#include <QAction>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>

#include <algorithm>

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

SourceSaving::SourceSaving(const Parts& parts) : QObject(&parts.window), m_parts(parts) {}

void SourceSaving::AddTo(QMenu& menu)
{
    m_action = menu.addAction({}, this, &SourceSaving::Save);
    m_action->setObjectName(QStringLiteral("saveBack"));
    m_action->setStatusTip(tr("Writes the changed materials into the model itself"));
    connect(&menu, &QMenu::aboutToShow, this, &SourceSaving::ShowName);
    ShowName();
}

void SourceSaving::Remember(const QString& file, const ImportedModel& model)
{
    const std::string path = QFileInfo(file).absoluteFilePath().toStdString();
    m_source.reset();
    m_parts.messages.Telling([&] { m_source = SourceOf(path, model); });
    const StudioScene::Shapes& shapes = m_parts.scene.Scene().All();
    m_shapes.assign(shapes.begin(), shapes.end());
    ShowName();
}

bool SourceSaving::IsShown() const
{
    return m_source && std::ranges::equal(m_shapes, m_parts.scene.Scene().All(), {},
                                          [](const auto& shape) { return shape.lock(); });
}

void SourceSaving::ShowName()
{
    const bool isShown = IsShown();
    m_action->setText(isShown
                          ? tr("Save &Back into \"%1\"...").arg(MenuCaption(NameOf(m_source->path)))
                          : tr("Save &Back"));
    m_action->setEnabled(isShown);
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

void SourceSaving::Save()
{
    if (!IsShown()) {
        return;
    }
    m_parts.messages.Telling([this] {
        DressedShapes now;
        SourcePatch patch;
        {
            const WaitCursor waiting;
            now = DressedNow(*m_source, m_parts.scene.Scene().All());
            patch = PatchOf(*m_source, now);
        }
        const QString name = NameOf(m_source->path);
        const QString losses =
            m_parts.exchange.Keep(tr("Saved Back"), patch.report, now.materials.size());
        if (patch.files.empty()) {
            m_parts.messages.Show(losses.isEmpty()
                                      ? tr("%1 has these materials already.").arg(name)
                                      : tr("%1 can hold nothing of what has changed. File > Last "
                                           "Report tells more.")
                                            .arg(name));
            return;
        }
        if (!m_parts.messages.Ask(QuestionOf(patch))) {
            return;
        }
        const WaitCursor waiting;
        m_source = SaveBack(*m_source, now);
        m_parts.messages.ShowAndLog(tr("The materials were saved back into %1. %2")
                                        .arg(QString::fromStdString(m_source->path), losses)
                                        .trimmed());
    });
}

}  // namespace studio
