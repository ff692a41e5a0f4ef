#include "ShownText.h"

#include <CorvexMaterial/NamedColours.h>
#include <CorvexMaterial/PlainText.h>

#include <QColor>

#include <algorithm>

namespace studio {

QString TipHeading(const std::string& name)
{
    return QStringLiteral("<b>%1</b>").arg(QString::fromStdString(name).toHtmlEscaped());
}

QString TipRow(const QString& name, const QString& value)
{
    return QStringLiteral("<br>%1: %2").arg(name.toHtmlEscaped(), value.toHtmlEscaped());
}

QString TipRowsOfFields(const CorvexDB::udtMaterial& material,
                        const std::vector<std::string>& fieldNames)
{
    QString text;
    const std::size_t count = std::min(fieldNames.size(), material.CustomFields.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (!fieldNames[i].empty() && !material.CustomFields[i].empty()) {
            text += TipRow(QString::fromStdString(fieldNames[i]),
                           QString::fromStdString(material.CustomFields[i]));
        }
    }
    return text;
}

QString MenuCaption(const QString& text)
{
    constexpr qsizetype kLongest = 40;
    constexpr qsizetype kEnd = 12;
    return CorvexMaterial::PlainCaption(
        text.size() <= kLongest ? text : text.left(kLongest - kEnd) + u'…' + text.right(kEnd));
}

QString ColourText(CorvexMaterial::Colour colour)
{
    const std::size_t position = CorvexMaterial::ColourListPosition(colour);
    if (position < CorvexMaterial::kNamedColours.size()) {
        return QString::fromUtf8(CorvexMaterial::kNamedColours[position].name);
    }
    const auto bytes = CorvexMaterial::BytesOf(colour);
    return QColor(bytes.red, bytes.green, bytes.blue).name();
}

}  // namespace studio
