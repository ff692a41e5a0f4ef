#include "material/AmountLink.h"

#include "controls/AmountField.h"
#include "platform/NumberText.h"

#include <QSignalBlocker>
#include <QSlider>

namespace CorvexMaterial {

void StartAmount(AmountField& field, Attribute attribute)
{
    const QString text = QString::fromUtf8(FactoryText(attribute));
    field.SetFallback(text);
    field.setText(text);
}

void LinkSlider(QSlider& slider, AmountField& field)
{
    const auto follow = [&slider, &field] {
        const QSignalBlocker quiet(&slider);
        slider.setValue(WholeNumberFromText(field.text().toStdString()).value_or(slider.value()));
    };
    follow();
    QObject::connect(&field, &QLineEdit::textChanged, &slider, follow);
    QObject::connect(&slider, &QSlider::valueChanged, &field,
                     [&field](int value) { field.setText(QString::number(value)); });
}

}  // namespace CorvexMaterial
