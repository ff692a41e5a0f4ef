#pragma once

class QLabel;
class QString;

namespace CorvexMaterial {

/// Says below a field that its text is no number.
void ShowNotANumber(QLabel& label, const QString& text);

}  // namespace CorvexMaterial
