#include "SceneExchange.h"

#include "Interchange.h"
#include "MaterialExchange.h"
#include "SaveDialog.h"
#include "ScenePane.h"
#include "SettingNames.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "WaitCursor.h"
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
    m_parts.messages.Telling([&] {
        Report report;
        std::size_t materials = 0;
        {
            const WaitCursor waiting;
            materials = ExportScene(file.toStdString(), ShapesOf(what), report);
        }
        m_parts.messages.Show(tr("%1 was written.").arg(QFileInfo(file).fileName()));
        m_parts.exchange.Show(what == What::Scene ? tr("Scene Exported") : tr("Selection Exported"),
                              report, materials);
    });
}

}  // namespace studio
