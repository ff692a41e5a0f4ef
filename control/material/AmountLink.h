#pragma once

class QSlider;

namespace CorvexMaterial {

class AmountField;

/// Slider and field show the same amount; the field is its storage.
void LinkSlider(QSlider& slider, AmountField& field);

}  // namespace CorvexMaterial
