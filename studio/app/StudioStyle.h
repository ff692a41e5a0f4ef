#pragma once

#include <QProxyStyle>

namespace studio {

/// Fusion, with what a dark palette makes unreadable drawn anew: boxes to tick and the buttons of a
/// dock's title.
class StudioStyle : public QProxyStyle {
    Q_OBJECT

public:
    StudioStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
};

}  // namespace studio
