#include "AttributeHints.h"

#include <CorvexMaterial/Schema.h>

#include <QAbstractSlider>
#include <QCoreApplication>
#include <QLabel>

namespace CorvexMaterial {

void OfferRange(QAbstractSlider& slider, Attribute attribute)
{
    const NumberRange& range = RowOf(attribute).range;
    slider.setRange(static_cast<int>(range.least), static_cast<int>(range.most));
}

void TellOtherNames(QWidget& widget, Attribute attribute)
{
    const std::string_view names = RowOf(attribute).synonyms;
    if (names.empty()) {
        return;
    }
    const QString also =
        QCoreApplication::translate("Attribute", "Also called: %1")
            .arg(QString::fromUtf8(names.data(), static_cast<qsizetype>(names.size())));
    const auto tell = [&also](QWidget& told) {
        const QString tip = told.toolTip();
        told.setToolTip(tip.isEmpty() ? also : tip + u'\n' + also);
    };
    tell(widget);
    for (QLabel* label : widget.parentWidget()->findChildren<QLabel*>()) {
        if (label->buddy() == &widget) {
            tell(*label);
        }
    }
}

}  // namespace CorvexMaterial
