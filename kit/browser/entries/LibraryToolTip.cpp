#include "LibraryToolTip.h"

#include "LibraryFile.h"
#include "MaterialText.h"
#include "ShownText.h"
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

QString Label(const AttributeRow& row)
{
    return QCoreApplication::translate("Attribute", row.label);
}

QString MaterialRows(const Material& material)
{
    QString text = TipRow(Label(RowOf(Attribute::Color)), ColourText(material.Color));
    for (const AttributeRow& row : CorvexMaterial::AttributeRows()) {
        if (row.group == AttributeGroup::Surface && row.unit == AttributeUnit::Percent) {
            const QString amount = QString::fromStdString(*TextIn(material, row.attribute));
            text += TipRow(Label(row), Translated("%1 %").arg(amount));
        }
    }
    if (!material.Plugin.empty()) {
        text += TipRow(Label(RowOf(Attribute::Plugin)), QString::fromStdString(material.Plugin));
    }
    for (const Attribute layer : CorvexMaterial::kTextureFiles) {
        const QString file = QString::fromStdString(*TextIn(material, layer));
        if (!file.isEmpty()) {
            text += TipRow(Label(RowOf(layer)), QFileInfo(file).fileName());
        }
    }
    return text;
}

}  // namespace

QString LibraryToolTipText(LibraryFile& file, std::int32_t index,
                           const std::vector<std::string>& fieldNames)
{
    const QString heading = TipHeading(file.NameAt(index));
    const std::string folder = FolderOf(file.Path());
    if (file.Kind() == LibraryKind::Textures) {
        const QString path = QString::fromStdString(TextureOfJson(file.JsonAt(index), folder));
        const QString missing = QFileInfo::exists(path) ? QString() : Translated(" (missing)");
        return heading + TipRow(Translated("File"), path + missing);
    }
    const Material material = MaterialOfJson(file.JsonAt(index), folder).material;
    return heading + MaterialRows(material) + TipRowsOfFields(material, fieldNames);
}

}  // namespace studio
