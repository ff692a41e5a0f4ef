#include "DifferencePainting.h"

#include "DifferenceMark.h"
#include "Swatch.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainterPath>
#include <QPushButton>
#include <QSlider>
#include <QStyleOption>
#include <QStylePainter>
#include <QToolButton>

namespace CorvexMaterial {

namespace {

using Colours = std::vector<QColor>;

/// Slanted, and narrower where that makes it fit.
QFont SayingFont(int width, const QWidget& control)
{
    QFont font = control.font();
    font.setItalic(true);
    if (QFontMetrics(font).horizontalAdvance(MultipleValues()) > width) {
        font.setStretch(QFont::SemiCondensed);
    }
    return font;
}

/// Words where they have room, else a dash.
QString SayingIn(int width, const QWidget& control)
{
    const QFontMetrics metrics(SayingFont(width, control));
    const bool hasRoom = width >= metrics.horizontalAdvance(MultipleValues()) * 2 / 3;
    return hasRoom ? metrics.elidedText(MultipleValues(), Qt::ElideRight, width)
                   : QStringLiteral("—");
}

void Say(QStylePainter& painter, const QRect& room, Qt::Alignment alignment,
         QPalette::ColorRole role, const QWidget& control)
{
    painter.setFont(SayingFont(room.width(), control));
    painter.drawItemText(room, static_cast<int>(alignment), control.palette(), control.isEnabled(),
                         SayingIn(room.width(), control), role);
}

void PaintField(QLineEdit& field)
{
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth =
        field.hasFrame() ? field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field)
                         : 0;
    option.state |= QStyle::State_Sunken;
    QStylePainter painter(&field);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    const QRect room = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
    Say(painter, room.adjusted(2, 0, -2, 0), field.alignment() | Qt::AlignVCenter, QPalette::Text,
        field);
}

void PaintList(QComboBox& list)
{
    QStyleOptionComboBox option;
    option.initFrom(&list);
    option.frame = list.hasFrame();
    const QRect room = list.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &list);
    const int width = room.width() - 2;
    option.currentText = SayingIn(width, list);
    QStylePainter painter(&list);
    painter.setFont(SayingFont(width, list));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void PaintSlider(QSlider& slider)
{
    QStylePainter painter(&slider);
    Say(painter, slider.rect(), Qt::AlignCenter, QPalette::WindowText, slider);
}

void PaintTickBox(QCheckBox& box)
{
    QStyleOptionButton option;
    option.initFrom(&box);
    option.text = box.text();
    option.icon = box.icon();
    option.iconSize = box.iconSize();
    option.state |= QStyle::State_NoChange;
    option.state.setFlag(QStyle::State_Sunken, box.isDown());
    QStylePainter(&box).drawControl(QStyle::CE_CheckBox, option);
}

/// One of a group, of which none is the chosen one.
void PaintChoice(QToolButton& button)
{
    QStyleOptionToolButton option;
    option.initFrom(&button);
    option.icon = button.icon();
    option.iconSize = button.iconSize();
    option.toolButtonStyle = button.toolButtonStyle();
    option.subControls = QStyle::SC_ToolButton;
    option.state |= button.isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    QStylePainter(&button).drawComplexControl(QStyle::CC_ToolButton, option);
}

/// What leads to the values without showing them, or shows one that is being edited. The dot keeps
/// clear of the text.
void PaintDot(QWidget& control)
{
    constexpr qreal kRadius = 3.0;
    constexpr qreal kInset = kRadius + 2.0;
    const auto* field = qobject_cast<const QLineEdit*>(&control);
    const bool isLeft = field != nullptr && field->alignment().testFlag(Qt::AlignRight);
    QPainter painter(&control);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(control.palette().color(QPalette::Base), 1.0));
    painter.setBrush(control.palette().color(QPalette::Text));
    painter.drawEllipse(QPointF(isLeft ? kInset : control.width() - kInset, kInset), kRadius,
                        kRadius);
}

void PaintStripes(Swatch& swatch, const Colours& colours)
{
    constexpr qreal kFrame = 3.0;
    QPainter painter(&swatch);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(swatch.rect()).adjusted(kFrame, kFrame, -kFrame, -kFrame);
    QPainterPath inside;
    inside.addRoundedRect(area, 2.0, 2.0);
    painter.setClipPath(inside);
    if (colours.empty()) {
        painter.fillRect(area, QBrush(swatch.palette().color(QPalette::Text), Qt::BDiagPattern));
        return;
    }
    painter.setPen(Qt::NoPen);
    const qreal slant = area.height() / 2.0;
    const qreal step = (area.width() + slant) / static_cast<qreal>(colours.size());
    qreal left = area.left();
    for (const QColor& colour : colours) {
        painter.setBrush(colour);
        const qreal right = left + step + 0.5;
        painter.drawPolygon(QPolygonF({{left, area.top()},
                                       {right, area.top()},
                                       {right - slant, area.bottom()},
                                       {left - slant, area.bottom()}}));
        left += step;
    }
}

void PaintPlate(QWidget& control)
{
    QStylePainter painter(&control);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(control.palette().color(QPalette::Text), 1.0, Qt::DashLine));
    painter.setBrush(control.palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(control.rect()).adjusted(1, 1, -1, -1), 3, 3);
    painter.setFont(SayingFont(control.width(), control));
    painter.setPen(control.palette().color(QPalette::Text));
    painter.drawText(control.rect().adjusted(6, 6, -6, -6), Qt::AlignCenter | Qt::TextWordWrap,
                     MultipleValues());
}

}  // namespace

void PaintDiffering(QWidget& control, const Colours& colours, const std::function<void()>& paintOwn)
{
    auto* const field = qobject_cast<QLineEdit*>(&control);
    auto* const list = qobject_cast<QComboBox*>(&control);
    auto* const slider = qobject_cast<QSlider*>(&control);
    auto* const button = qobject_cast<QToolButton*>(&control);
    const bool isEdited =
        control.hasFocus() && (field != nullptr || list != nullptr || slider != nullptr);
    const bool isCommand = qobject_cast<QPushButton*>(&control) != nullptr ||
                           (button != nullptr && !button->isCheckable());
    if (isEdited || isCommand) {
        paintOwn();
        PaintDot(control);
    } else if (field != nullptr) {
        PaintField(*field);
    } else if (list != nullptr) {
        PaintList(*list);
    } else if (slider != nullptr) {
        PaintSlider(*slider);
    } else if (button != nullptr) {
        PaintChoice(*button);
    } else if (auto* const box = qobject_cast<QCheckBox*>(&control)) {
        PaintTickBox(*box);
    } else if (auto* const swatch = qobject_cast<Swatch*>(&control)) {
        paintOwn();
        PaintStripes(*swatch, colours);
    } else if (auto* const label = qobject_cast<QLabel*>(&control)) {
        QStylePainter painter(label);
        Say(painter, label->contentsRect(), label->alignment(), label->foregroundRole(), *label);
    } else {
        PaintPlate(control);
    }
}

}  // namespace CorvexMaterial
