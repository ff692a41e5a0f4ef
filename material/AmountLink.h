#pragma once

#include "material/Attributes.h"

class QSlider;

namespace CorvexMaterial {

class AmountField;

/// Gives the field its attribute's factory text, also as what stands in for a text that is no
/// number.
void StartAmount(AmountField& field, Attribute attribute);

/// Slider and field show the same amount; the field is its storage.
void LinkSlider(QSlider& slider, AmountField& field);

}  // namespace CorvexMaterial
