#include "LibraryToolTip.h"

#include "LibraryFile.h"
#include "MaterialText.h"
#include "ShapeToolTip.h"
#include "StoredPath.h"
#include "TextureText.h"
#include <CorvexMaterial/AttributeText.h>

#include <QCoreApplication>
#include <QFileInfo>

namespace studio {
namespace {

using Material = CorvexDB::udtMaterial;
using CorvexMaterial::Attribute;
using CorvexMaterial::AttributeGroup;
using CorvexMaterial::AttributeRow;
using CorvexMaterial::AttributeUnit;

constexpr const char* kToolTipContext = "LibraryToolTip";

QString Translated(const char* text)
{
    return QCoreApplication::translate(kToolTipContext, text);
}

// The user's own text; none of it may act as markup.
QString ToolTipRow(const QString& name, const QString& value)
{
    return QStringLiteral("<br>%1: %2").arg(name.toHtmlEscaped(), value.toHtmlEscaped());
}

QString Heading(const QString& name)
{
    return QStringLiteral("<b>%1</b>").arg(name.toHtmlEscaped());
}

QString Label(const AttributeRow& row)
{
    return QCoreApplication::translate("Attribute", row.label);
}

QString MaterialRows(const Material& material)
{
    QString text = ToolTipRow(Label(RowOf(Attribute::Color)), ColourText(material.Color));
    for (const AttributeRow& row : CorvexMaterial::AttributeRows()) {
        if (row.group == AttributeGroup::Surface && row.unit == AttributeUnit::Percent) {
            const QString amount = QString::fromStdString(*TextIn(material, row.attribute));
            text += ToolTipRow(Label(row), Translated("%1 %").arg(amount));
        }
    }
    if (!material.Plugin.empty()) {
        text +=
            ToolTipRow(Label(RowOf(Attribute::Plugin)), QString::fromStdString(material.Plugin));
    }
    for (const Attribute layer : CorvexMaterial::kTextureFiles) {
        const QString file = QString::fromStdString(*TextIn(material, layer));
        if (!file.isEmpty()) {
            text += ToolTipRow(Label(RowOf(layer)), QFileInfo(file).fileName());
        }
    }
    return text;
}

QString FieldRows(const Material& material, const std::vector<std::string>& fieldNames)
{
    QString text;
    const std::size_t count = std::min(fieldNames.size(), material.CustomFields.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (!fieldNames[i].empty() && !material.CustomFields[i].empty()) {
            text += ToolTipRow(QString::fromStdString(fieldNames[i]),
                               QString::fromStdString(material.CustomFields[i]));
        }
    }
    return text;
}

}  // namespace

QString LibraryToolTipText(LibraryFile& file, std::int32_t index,
                           const std::vector<std::string>& fieldNames)
{
    const QString heading = Heading(QString::fromStdString(file.NameAt(index)));
    const std::string folder = FolderOf(file.Path());
    if (file.Kind() == LibraryKind::Textures) {
        const QString path = QString::fromStdString(TextureOfJson(file.JsonAt(index), folder));
        const QString missing = QFileInfo::exists(path) ? QString() : Translated(" (missing)");
        return heading + ToolTipRow(Translated("File"), path + missing);
    }
    const Material material = MaterialOfJson(file.JsonAt(index), folder).material;
    return heading + MaterialRows(material) + FieldRows(material, fieldNames);
}

}  // namespace studio
