#include "StudioStyle.h"

#include "FlatShapes.h"
#include "StyleSigns.h"
#include <CorvexMaterial/KeyboardAccess.h>

#include <QApplication>
#include <QColorDialog>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace studio {
namespace {

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
    } else {
        painter.fillRect(option.rect, option.palette.color(QPalette::Base));
    }
}

struct PrimitiveRow {
    QStyle::PrimitiveElement element;
    void (*draw)(QPainter&, const QStyleOption&);
};

constexpr std::array kPrimitives{
    PrimitiveRow{QStyle::PE_PanelButtonCommand, DrawButton},
    PrimitiveRow{QStyle::PE_PanelLineEdit, DrawField},
    PrimitiveRow{QStyle::PE_FrameFocusRect, DrawFocusRing},
    PrimitiveRow{QStyle::PE_IndicatorCheckBox, DrawTickBox},
    PrimitiveRow{QStyle::PE_IndicatorRadioButton, DrawRadio},
};

}  // namespace

StudioStyle::StudioStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void StudioStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    const bool isOwnDialog = qobject_cast<QDialog*>(widget) != nullptr &&
                             qobject_cast<QFileDialog*>(widget) == nullptr &&
                             qobject_cast<QColorDialog*>(widget) == nullptr;
    if (isOwnDialog || qobject_cast<QDockWidget*>(widget) != nullptr) {
        CorvexMaterial::GiveKeyboardAccess(*widget);
    }
    auto* const label = qobject_cast<QLabel*>(widget);
    // A tool tip is one too. Ours have names and values in a table, each of them escaped.
    if (label != nullptr && label->textFormat() == Qt::AutoText && !label->inherits("QTipLabel")) {
        label->setTextFormat(Qt::PlainText);
    }
}

void StudioStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const
{
    for (const PrimitiveRow& row : kPrimitives) {
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
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    painter->save();
    if (control == CC_ComboBox && combo != nullptr && !combo->editable) {
        DrawFlatCombo(*painter, *combo);
    } else if (control == CC_Slider && slider != nullptr) {
        QStyleOptionSlider ticks(*slider);
        ticks.subControls = SC_SliderTickmarks;
        QProxyStyle::drawComplexControl(CC_Slider, &ticks, painter, widget);
        DrawFlatSlider(*painter, *slider,
                       subControlRect(CC_Slider, slider, SC_SliderGroove, widget),
                       subControlRect(CC_Slider, slider, SC_SliderHandle, widget));
    } else if (control == CC_SpinBox && spin != nullptr) {
        DrawFlatSpin(*painter, *spin, subControlRect(CC_SpinBox, spin, SC_SpinBoxUp, widget),
                     subControlRect(CC_SpinBox, spin, SC_SpinBoxDown, widget));
    } else if (control == CC_ToolButton && tool != nullptr) {
        // Its own ring would lie inside the button, across the sign.
        QStyleOptionToolButton plain(*tool);
        plain.state.setFlag(State_HasFocus, false);
        QProxyStyle::drawComplexControl(CC_ToolButton, &plain, painter, widget);
        if (tool->state.testFlag(State_HasFocus)) {
            DrawFocusRing(*painter, *tool);
        }
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    painter->restore();
}

QRect StudioStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const
{
    constexpr int kTextGap = 3;
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const bool framed = frame == nullptr || frame->lineWidth > 0;
    return element == SE_LineEditContents && framed ? rect.adjusted(kTextGap, 0, -kTextGap, 0)
                                                    : rect;
}

QRect StudioStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl part, const QWidget* widget) const
{
    QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const bool level = slider != nullptr && slider->orientation == Qt::Horizontal;
    if (control == CC_Slider && level && part != SC_SliderTickmarks) {
        // With ticks too its track lies level with the texts beside it.
        rect.moveTop(option->rect.center().y() - rect.height() / 2);
    }
    return rect;
}

QSize StudioStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const
{
    constexpr QSize kAroundText(20, 0);
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const bool hasRoom =
        widget != nullptr && qobject_cast<const QDialog*>(widget->window()) != nullptr;
    return type == CT_PushButton && hasRoom ? size.expandedTo(contents + kAroundText) : size;
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
    const std::optional<QIcon> sign = StyleSign(icon, QApplication::palette());
    return sign ? *sign : QProxyStyle::standardIcon(icon, option, widget);
}

}  // namespace studio
