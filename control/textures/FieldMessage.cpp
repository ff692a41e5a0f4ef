#include "FieldMessage.h"

#include <QCoreApplication>
#include <QLabel>

namespace CorvexMaterial {

namespace {

// Readable on a light and on a dark palette.
const QColor kWarningColor(0xd8, 0x3a, 0x34);

}  // namespace

void ShowNotANumber(QLabel& label, const QString& text)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, kWarningColor);
    label.setPalette(palette);
    label.setTextFormat(Qt::PlainText);
    label.setText(
        QCoreApplication::translate("FieldMessage", "“%1” is not a number.").arg(text.left(24)));
    label.show();
}

}  // namespace CorvexMaterial
