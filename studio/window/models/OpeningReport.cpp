#include "OpeningReport.h"

#include "MaterialExchange.h"
#include "ScenePane.h"
#include "TexturePaths.h"
#include "WindowMessages.h"

#include <QFileInfo>

#include <set>

namespace studio {
namespace {

std::size_t MaterialsOf(const StudioScene::Shapes& shapes)
{
    std::set<const void*> materials;
    for (const auto& shape : shapes) {
        materials.insert(shape->Applied().gathered.get());
    }
    return materials.size();
}

}  // namespace

void OpeningReport::Tell(const QString& title, const Report& report, const QString& note)
{
    const StudioScene::Shapes& shapes = m_parts.scene.Scene().All();
    const std::size_t missing = MissingTexturePaths(shapes).size();
    QStringList told{shapes.size() == 1 ? tr("1 shape.") : tr("%1 shapes.").arg(shapes.size())};
    if (!note.isEmpty()) {
        told << note;
    }
    if (missing > 0) {
        told << tr("Textures that are missing: %1. File > Find Missing Textures looks for them.")
                    .arg(missing);
    }
    const QString losses = m_parts.exchange.Keep(title, report, MaterialsOf(shapes), missing);
    if (!losses.isEmpty()) {
        told << losses << tr("File > Last Report tells more.");
        m_parts.messages.Log(losses);
    }
    m_parts.messages.Show(told.join(u' '));
    if (report.Count(Outcome::Dropped) > 0 || missing > 0) {
        m_parts.exchange.ShowLast();
    }
}

void OpeningReport::Tell(const QString& title, const QStringList& problems, const QString& note)
{
    Report report;
    for (const QString& problem : problems) {
        report.Add({{}, {}, Outcome::Dropped, problem.toStdString()});
    }
    for (const std::string& path : MissingTexturePaths(m_parts.scene.Scene().All())) {
        report.Add(
            {{},
             QFileInfo(QString::fromStdString(path)).fileName().toStdString(),
             Outcome::Approximated,
             tr("the image file is missing: %1").arg(QString::fromStdString(path)).toStdString()});
    }
    Tell(title, report, note);
}

}  // namespace studio
