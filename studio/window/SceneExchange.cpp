#include "SceneExchange.h"

#include "FileWork.h"
#include "Interchange.h"
#include "MaterialExchange.h"
#include "SaveDialog.h"
#include "ScenePane.h"
#include "SettingNames.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "WindowMessages.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>

namespace studio {

void SceneExchange::AddTo(QMenu& menu)
{
    QAction* scene = menu.addAction(tr("Ex&port Scene..."), this, [this] { Choose(What::Scene); });
    scene->setObjectName(QStringLiteral("exportScene"));
    scene->setStatusTip(tr("Writes all shapes for other programs"));
    QAction* selection =
        menu.addAction(tr("&Export Selection..."), this, [this] { Choose(What::Selection); });
    selection->setObjectName(QStringLiteral("exportSelection"));
    selection->setStatusTip(tr("Writes the selected shapes for other programs"));
    m_parts.scene.EnableWithSelection(selection);
}

StudioScene::Shapes SceneExchange::ShapesOf(What what) const
{
    StudioScene::Shapes shapes = m_parts.scene.Scene().All();
    if (what == What::Selection) {
        const Selection& selected = m_parts.scene.Selected();
        std::erase_if(shapes, [&](const auto& shape) { return !selected.Contains(*shape); });
    }
    return shapes;
}

void SceneExchange::Choose(What what)
{
    const bool isScene = what == What::Scene;
    const QString file =
        AskForTarget(m_parts.window, {isScene ? tr("Export Scene") : tr("Export Selection"),
                                      m_parts.host.Settings().Text(kExportFolderSetting),
                                      SceneFilters(), isScene ? tr("scene") : tr("selection")});
    if (!file.isEmpty()) {
        Export(what, file);
    }
}

void SceneExchange::Export(What what, const QString& file)
{
    m_parts.host.Settings().SetText(kExportFolderSetting, QFileInfo(file).absolutePath());
    struct Written {
        Report report;
        std::size_t materials = 0;
    };
    const QString name = QFileInfo(file).fileName();
    const auto written = std::make_shared<Written>();
    m_parts.work.Start(
        tr("Writing %1...").arg(name),
        [written, path = file.toStdString(),
         shapes = CopiesOf(ShapesOf(what))](const std::stop_token& stop) {
            written->materials = ExportScene(path, shapes, written->report, stop).materials;
        },
        [this, written, name, what] {
            m_parts.messages.Show(tr("%1 was written.").arg(name));
            m_parts.exchange.Show(what == What::Scene ? tr("Scene Exported")
                                                      : tr("Selection Exported"),
                                  written->report, written->materials);
        });
}

}  // namespace studio
