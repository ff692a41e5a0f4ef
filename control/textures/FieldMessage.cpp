#include "FieldMessage.h"

#include <CorvexMaterial/LegibleColours.h>

#include <QCoreApplication>
#include <QLabel>

namespace CorvexMaterial {

void ShowNotANumber(QLabel& label, const QString& text)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, ErrorOn(palette.color(QPalette::Window)));
    label.setPalette(palette);
    label.setTextFormat(Qt::PlainText);
    label.setText(
        QCoreApplication::translate("FieldMessage", "“%1” is not a number.").arg(text.left(24)));
    label.show();
}

}  // namespace CorvexMaterial
