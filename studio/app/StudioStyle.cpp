#include "studio/app/StudioStyle.h"

#include "studio/app/FlatShapes.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyleFactory>
#include <QStyleOption>

namespace studio {
namespace {

QPixmap DockButton(QStyle::StandardPixmap icon, const QColor& colour)
{
    constexpr qreal kScale = 4.0;
    constexpr int kSize = 16;
    QPixmap picture(QSize(kSize, kSize) * kScale);
    picture.setDevicePixelRatio(kScale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (icon == QStyle::SP_TitleBarCloseButton) {
        painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
        painter.drawLine(QPointF(11.5, 4.5), QPointF(4.5, 11.5));
    } else {
        painter.drawRect(QRectF(3.5, 6.5, 6.0, 6.0));
        painter.drawPolyline(QPolygonF({{6.5, 3.5}, {12.5, 3.5}, {12.5, 9.5}}));
    }
    return picture;
}

void DrawButton(QPainter& painter, const QStyleOption& option)
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    DrawFlatButton(painter, option,
                   button != nullptr &&
                       button->features.testFlag(QStyleOptionButton::DefaultButton));
}

void DrawField(QPainter& painter, const QStyleOption& option)
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    // Inside a spin box or a list the field has no frame of its own.
    if (frame == nullptr || frame->lineWidth > 0) {
        DrawFlatField(painter, option);
    }
}

struct ShapeRow {
    QStyle::PrimitiveElement element;
    void (*draw)(QPainter&, const QStyleOption&);
};

constexpr std::array kShapes{
    ShapeRow{QStyle::PE_PanelButtonCommand, DrawButton},
    ShapeRow{QStyle::PE_PanelLineEdit, DrawField},
    ShapeRow{QStyle::PE_FrameFocusRect, DrawFocusRing},
    ShapeRow{QStyle::PE_IndicatorCheckBox, DrawTickBox},
    ShapeRow{QStyle::PE_IndicatorRadioButton, DrawRadio},
};

}  // namespace

StudioStyle::StudioStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void StudioStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const
{
    for (const ShapeRow& row : kShapes) {
        if (row.element == element) {
            painter->save();
            row.draw(*painter, *option);
            painter->restore();
            return;
        }
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void StudioStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    if (element != CE_TabBarTabShape || tab == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    painter->save();
    DrawFlatTab(*painter, *tab);
    painter->restore();
}

void StudioStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    painter->save();
    if (control == CC_ComboBox && combo != nullptr && !combo->editable) {
        DrawFlatCombo(*painter, *combo);
    } else if (control == CC_Slider && slider != nullptr &&
               slider->tickPosition == QSlider::NoTicks) {
        DrawFlatSlider(*painter, *slider,
                       subControlRect(CC_Slider, slider, SC_SliderGroove, widget),
                       subControlRect(CC_Slider, slider, SC_SliderHandle, widget));
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    painter->restore();
}

int StudioStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const
{
    const bool shifts = metric == PM_ButtonShiftHorizontal || metric == PM_ButtonShiftVertical;
    return shifts ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
}

int StudioStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const
{
    return hint == SH_DialogButtonBox_ButtonsHaveIcons
               ? 0
               : QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon StudioStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                const QWidget* widget) const
{
    if (icon != SP_TitleBarCloseButton && icon != SP_TitleBarNormalButton) {
        return QProxyStyle::standardIcon(icon, option, widget);
    }
    return DockButton(icon, QApplication::palette().color(QPalette::WindowText));
}

}  // namespace studio
