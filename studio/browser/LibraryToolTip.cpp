#include "studio/browser/LibraryToolTip.h"

#include "studio/app/ShapeToolTip.h"
#include "studio/libraries/LibraryFile.h"
#include "studio/libraries/MaterialText.h"
#include "studio/libraries/StoredPath.h"
#include "studio/libraries/TextureText.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <array>

namespace studio {
namespace {

using Material = CorvexDB::udtMaterial;
using Files = CorvexDB::TextureFiles;

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

struct AmountRow {
    const char* name;
    std::int32_t Material::*amount;
};
constexpr std::array kAmountRows{
    AmountRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Ambient"), &Material::Ambient},
    AmountRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Emissive"), &Material::Emissive},
    AmountRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Specular"), &Material::Specular},
    AmountRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Transparency"), &Material::Transparency},
};

struct FileRow {
    const char* name;
    std::string Files::*file;
};
constexpr std::array kFileRows{
    FileRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Texture"), &Files::primary},
    FileRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Overlay"), &Files::overlay},
    FileRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Alpha map"), &Files::alpha},
    FileRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Bump map"), &Files::bump},
    FileRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Specular map"), &Files::specular},
    FileRow{QT_TRANSLATE_NOOP("LibraryToolTip", "Environment map"), &Files::environment},
};

QString MaterialRows(const Material& material)
{
    QString text = ToolTipRow(Translated("Color"), ColourText(material.Color));
    for (const AmountRow& row : kAmountRows) {
        text += ToolTipRow(Translated(row.name), Translated("%1 %").arg(material.*row.amount));
    }
    if (!material.Plugin.empty()) {
        text += ToolTipRow(Translated("Plug-in"), QString::fromStdString(material.Plugin));
    }
    for (const FileRow& row : kFileRows) {
        const QString file = QString::fromStdString(material.Textures.*row.file);
        if (!file.isEmpty()) {
            text += ToolTipRow(Translated(row.name), QFileInfo(file).fileName());
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
