#pragma once

#include <QProxyStyle>

namespace studio {

/// Fusion with a flat, quiet look of its own: buttons, fields, lists, tabs, sliders and boxes to
/// tick are drawn from the palette, without gradients, and what has the keyboard wears a ring.
class StudioStyle : public QProxyStyle {
    Q_OBJECT

public:
    StudioStyle();

    using QProxyStyle::polish;
    /// No label guesses from its text that it is markup: names from files are shown as they are,
    /// in the toolkit's own boxes too.
    void polish(QWidget* widget) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    /// Texts of buttons have some room around them, but on the panel, which is narrow.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
};

}  // namespace studio
