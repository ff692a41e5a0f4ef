#include "ShapeToolTip.h"

#include "StudioShape.h"
#include "Tr.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/NamedColours.h>

#include <QFileInfo>
#include <QHelpEvent>
#include <QToolTip>

namespace studio {
namespace {

// Names and values are the user's own text; none of it may act as markup.
QString Row(const QString& name, const QString& value)
{
    return QStringLiteral("<br>%1: %2").arg(name.toHtmlEscaped(), value.toHtmlEscaped());
}

}  // namespace

QString ColourText(CorvexMaterial::Colour colour)
{
    const std::size_t position = CorvexMaterial::ColourListPosition(colour);
    if (position < CorvexMaterial::kNamedColours.size()) {
        const std::string_view name = CorvexMaterial::kNamedColours[position].name;
        return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    }
    const auto bytes = CorvexMaterial::BytesOf(colour);
    return QColor(bytes.red, bytes.green, bytes.blue).name();
}

QString ShapeToolTip::TextOf(const std::shared_ptr<StudioShape>& shape) const
{
    const CorvexDB::udtMaterial& material = shape->Material();
    QString text =
        QStringLiteral("<b>%1</b>").arg(QString::fromStdString(shape->Name()).toHtmlEscaped());
    if (const QString name = m_materialText(shape); !name.isEmpty()) {
        text += Row(Tr("Material"), name);
    }
    text += Row(Tr("Color"), ColourText(material.Color));
    if (!material.Plugin.empty()) {
        text += Row(Tr("Plug-in"), QString::fromStdString(material.Plugin));
    } else if (!material.Textures.primary.empty()) {
        const QString file = QString::fromStdString(material.Textures.primary);
        text += Row(Tr("Texture"), QFileInfo(file).fileName());
    }
    const std::vector<std::string> names = m_fieldNames();
    const std::size_t count = std::min(names.size(), material.CustomFields.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (!names[i].empty() && !material.CustomFields[i].empty()) {
            text += Row(QString::fromStdString(names[i]),
                        QString::fromStdString(material.CustomFields[i]));
        }
    }
    return text;
}

ShapeToolTip::ShapeToolTip(ViewportWidget& viewport, Pick pick, MaterialText materialText,
                           FieldNames fieldNames)
    : QObject(&viewport), m_viewport(viewport), m_pick(std::move(pick)),
      m_materialText(std::move(materialText)), m_fieldNames(std::move(fieldNames))
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
    if (shape == nullptr) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(help->globalPos(), TextOf(shape), &m_viewport);
    }
    return true;
}

}  // namespace studio
