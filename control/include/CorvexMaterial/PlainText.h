#pragma once

#include <QString>
#include <QTextDocument>

namespace CorvexMaterial {

/// A foreign name, or a text with one in it, for a tool tip. Tips have no plain format: what looks
/// like markup would be laid out as such, and the files it names opened.
[[nodiscard]] inline QString PlainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

/// A foreign name in a menu, on a button or beside a box to tick, where & would underline.
[[nodiscard]] inline QString PlainCaption(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

}  // namespace CorvexMaterial
