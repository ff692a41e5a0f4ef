#pragma once

#include <CorvexMaterial/Attribute.h>

class QAbstractSlider;
class QWidget;

namespace CorvexMaterial {

/// The slider's ends become those that the schema offers for the attribute.
void OfferRange(QAbstractSlider& slider, Attribute attribute);

/// Tool tips of the widget, and of the label that leads to it, say what else the attribute is
/// called.
void TellOtherNames(QWidget& widget, Attribute attribute);

}  // namespace CorvexMaterial
