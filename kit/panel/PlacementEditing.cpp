#include "PlacementEditing.h"

#include "ExportedProperties.h"
#include "ViewportWidget.h"

namespace studio {

using CorvexMaterial::Material;

PlacementEditing::PlacementEditing(const Parts& parts, QObject* parent)
    : QObject(parent), m_parts(parts),
      m_tool(parts.view, {[this] { return Shape(); },
                          [this](const PlacementTool::Rows& rows) { m_parts.link.Try(rows); },
                          [this](const PlacementTool::Rows& rows) { m_parts.link.Finish(rows); },
                          [this] { m_parts.link.GiveUp(); }}),
      m_action(new QAction(tr("&Placement Handles"), &parts.view))
{
    m_action->setCheckable(true);
    m_action->setShortcut(QKeySequence(tr("Ctrl+T")));
    m_action->setStatusTip(tr("Moves, scales and turns the texture of the selected shape by hand"));
    connect(m_action, &QAction::toggled, this, &PlacementEditing::Switch);
    connect(&m_parts.material, &Material::PlacementHandlesToggled, m_action, &QAction::setChecked);
}

std::optional<FrameItem> PlacementEditing::Shape() const
{
    const auto shape = m_parts.selection.Latest();
    if (shape == nullptr || shape->SharedMesh() == nullptr) {
        return std::nullopt;
    }
    const FrameItem item = shape->Item();
    const bool hasTexture = HasPlacedImages(*item.material) || item.generatedColor != nullptr ||
                            item.generatedBump != nullptr;
    return hasTexture ? std::optional(item) : std::nullopt;
}

void PlacementEditing::Switch(bool isOn)
{
    m_parts.material.ShowPlacementHandles(isOn);
    m_tool.Show(isOn);
    if (isOn && !Shape()) {
        Q_EMIT NothingToPlace();
    }
}

}  // namespace studio
