#pragma once

#include "Testing.h"
#include <QAbstractItemView>
#include <QTextDocumentFragment>

namespace CorvexTest {

/// Where the widgets of now would show the name, which looks like markup, as anything but its
/// letters. Counts the places where it is shown, as a check of the test itself.
inline std::string ShownAsMarkup(const QString& name, int& places)
{
    QStringList wrong;
    const auto look = [&](const QString& text, Qt::TextFormat format, const QObject& where) {
        const bool isMarkup =
            format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(text));
        const QString seen = isMarkup ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
        places += seen.contains(name) ? 1 : 0;
        if (text.contains(name) && !seen.contains(name)) {
            wrong << QStringLiteral("%1 %2: %3")
                         .arg(where.metaObject()->className(), where.objectName(), text);
        }
    };
    for (const QWidget* widget : QApplication::allWidgets()) {
        look(widget->toolTip(), Qt::AutoText, *widget);
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            look(label->text(), label->textFormat(), *label);
        }
        const auto* view = qobject_cast<const QAbstractItemView*>(widget);
        for (int row = 0; view && view->model() && row < view->model()->rowCount(); ++row) {
            for (int column = 0; column < view->model()->columnCount(); ++column) {
                const QVariant tip = view->model()->index(row, column).data(Qt::ToolTipRole);
                look(tip.toString(), Qt::AutoText, *view);
            }
        }
    }
    return wrong.join(u'\n').toStdString();
}

}  // namespace CorvexTest
