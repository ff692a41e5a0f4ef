#include "AmountLink.h"

#include "AmountField.h"

#include <QSignalBlocker>
#include <QSlider>

namespace CorvexMaterial {

void LinkSlider(QSlider& slider, AmountField& field)
{
    const auto follow = [&slider, &field] {
        const QSignalBlocker quiet(&slider);
        slider.setValue(field.Value());
    };
    follow();
    QObject::connect(&field, &QLineEdit::textChanged, &slider, follow);
    QObject::connect(&slider, &QSlider::valueChanged, &field,
                     [&field](int value) { field.setText(QString::number(value)); });
}

}  // namespace CorvexMaterial
