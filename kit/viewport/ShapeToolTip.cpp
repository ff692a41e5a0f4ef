#include "ShapeToolTip.h"

#include "ShownText.h"
#include "StudioShape.h"
#include "Tr.h"
#include "ViewportWidget.h"

#include <QFileInfo>
#include <QHelpEvent>
#include <QToolTip>

namespace studio {
QString ShapeToolTip::TextOf(const std::shared_ptr<StudioShape>& shape) const
{
    const CorvexDB::udtMaterial& material = shape->Material();
    QString text = TipHeading(shape->Name());
    if (const QString name = m_materialText(shape); !name.isEmpty()) {
        text += TipRow(Tr("Material"), name);
    }
    text += TipRow(Tr("Color"), ColourText(material.Color));
    if (!material.Plugin.empty()) {
        text += TipRow(Tr("Plug-in"), QString::fromStdString(material.Plugin));
    } else if (!material.Textures.primary.empty()) {
        const QString file = QString::fromStdString(material.Textures.primary);
        text += TipRow(Tr("Texture"), QFileInfo(file).fileName());
    }
    return text + TipRowsOfFields(material, m_fieldNames());
}

ShapeToolTip::ShapeToolTip(ViewportWidget& viewport, Pick pick, MaterialText materialText,
                           FieldNames fieldNames, ViewText viewText)
    : QObject(&viewport), m_viewport(viewport), m_pick(std::move(pick)),
      m_materialText(std::move(materialText)), m_fieldNames(std::move(fieldNames)),
      m_viewText(std::move(viewText))
{
    m_viewport.installEventFilter(this);
}

bool ShapeToolTip::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return false;
    }
    const auto* help = static_cast<const QHelpEvent*>(event);
    const auto shape = m_pick(help->pos());
    QToolTip::showText(help->globalPos(),
                       shape == nullptr ? m_viewText().toHtmlEscaped() : TextOf(shape),
                       &m_viewport);
    return true;
}

}  // namespace studio
