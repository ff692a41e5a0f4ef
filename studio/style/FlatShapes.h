#pragma once

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionSlider;
class QStyleOptionSpinBox;
class QStyleOptionTab;
class QRect;
class QRectF;

namespace studio {

/// The shapes of the studio's flat style, each from the palette and the state of its option. The
/// painter is left changed.

void DrawFlatButton(QPainter& painter, const QStyleOption& option, bool isDefault);
void DrawFlatField(QPainter& painter, const QStyleOption& option);
void DrawFlatCombo(QPainter& painter, const QStyleOption& option);
void DrawFlatSpin(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up,
                  const QRect& down);
void DrawFlatTab(QPainter& painter, const QStyleOptionTab& option);
void DrawFocusRing(QPainter& painter, const QStyleOption& option);
void DrawTickBox(QPainter& painter, const QStyleOption& option);
void DrawRadio(QPainter& painter, const QStyleOption& option);
/// A filled track from the start to the handle.
void DrawFlatSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& groove,
                    const QRect& handle);

}  // namespace studio
