#include "LibraryToolTip.h"

#include "LibraryFile.h"
#include "MaterialText.h"
#include "RatingText.h"
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

QString OptionalRow(const char* label, const std::string& value)
{
    return value.empty() ? QString() : TipRow(Translated(label), QString::fromStdString(value));
}

QString NotedRows(const EntryDetails& details, const EntryMark& mark)
{
    QString rating = RatingText(mark.rating);
    if (mark.isFavourite) {
        rating =
            rating.isEmpty() ? Translated("Favourite") : Translated("%1, favourite").arg(rating);
    }
    return OptionalRow(QT_TRANSLATE_NOOP("LibraryToolTip", "Rating"), rating.toStdString()) +
           OptionalRow(QT_TRANSLATE_NOOP("LibraryToolTip", "Tags"), TextOfLabels(details.tags)) +
           OptionalRow(QT_TRANSLATE_NOOP("LibraryToolTip", "Collections"),
                       TextOfLabels(details.collections)) +
           OptionalRow(QT_TRANSLATE_NOOP("LibraryToolTip", "Author"), details.author) +
           OptionalRow(QT_TRANSLATE_NOOP("LibraryToolTip", "Licence"), details.licence) +
           OptionalRow(QT_TRANSLATE_NOOP("LibraryToolTip", "Source"), details.source);
}

}  // namespace

QString LibraryToolTipText(LibraryFile& file, std::int32_t index,
                           const std::vector<std::string>& fieldNames, const EntryMark& mark)
{
    const QString heading = TipHeading(file.NameAt(index));
    const QString noted = NotedRows(file.DetailsOf(file.IdAt(index)), mark);
    const std::string folder = FolderOf(file.Path());
    if (file.Kind() == LibraryKind::Textures) {
        const QString path = QString::fromStdString(TextureOfJson(file.JsonAt(index), folder));
        const QString missing = QFileInfo::exists(path) ? QString() : Translated(" (missing)");
        return heading + TipRow(Translated("File"), path + missing) + noted;
    }
    const Material material = MaterialOfJson(file.JsonAt(index), folder).material;
    return heading + MaterialRows(material) + TipRowsOfFields(material, fieldNames) + noted;
}

}  // namespace studio
