#include "FlatShapes.h"

#include <CorvexMaterial/LegibleColours.h>

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace studio {
namespace {

constexpr qreal kRadius = 3.0;
constexpr qreal kTrackHeight = 4.0;
constexpr qreal kRing = 2.0;

bool InState(const QStyleOption& option, QStyle::StateFlag flag)
{
    return option.state.testFlag(flag);
}

/// Reached by a key, not by a click.
bool FocusedByKey(const QStyleOption& option)
{
    return InState(option, QStyle::State_HasFocus) &&
           InState(option, QStyle::State_KeyboardFocusChange);
}

bool Hovered(const QStyleOption& option)
{
    return InState(option, QStyle::State_Enabled) && InState(option, QStyle::State_MouseOver);
}

QColor Accent(const QStyleOption& option)
{
    return option.palette.color(QPalette::Highlight);
}

/// What is off may be as faint as it is.
QColor Edge(const QStyleOption& option)
{
    return InState(option, QStyle::State_Enabled) ? CorvexMaterial::EdgeOf(option.palette)
                                                  : option.palette.color(QPalette::Light);
}

QColor ButtonFill(const QStyleOption& option)
{
    const QColor plain = option.palette.color(QPalette::Button);
    if (InState(option, QStyle::State_Sunken)) {
        return option.palette.color(QPalette::Mid);
    }
    if (InState(option, QStyle::State_On)) {
        return CorvexMaterial::Mixed(Accent(option), plain, Hovered(option) ? 45 : 35);
    }
    return Hovered(option) ? option.palette.color(QPalette::Light) : plain;
}

void DrawPlate(QPainter& painter, const QRect& rect, const QColor& fill, const QPen& edge)
{
    const qreal inset = edge.widthF() / 2.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
}

void DrawChevron(QPainter& painter, QPointF middle, qreal reach, const QColor& colour)
{
    const qreal height = std::abs(reach) / 2.0;
    const qreal down = reach > 0 ? height : -height;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({middle + QPointF(-reach, -down), middle + QPointF(0, down),
                                    middle + QPointF(reach, -down)}));
}

void DrawTick(QPainter& painter, const QRectF& box, const QColor& colour)
{
    QPainterPath tick(QPointF(0.24, 0.54));
    tick.lineTo(0.43, 0.72);
    tick.lineTo(0.77, 0.30);
    painter.translate(box.topLeft());
    painter.scale(box.width(), box.height());
    painter.setPen(QPen(colour, 0.14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(tick);
}

/// The plate of a box to tick or to choose, accented when it is marked.
void SetMarkColours(QPainter& painter, const QStyleOption& option, bool marked)
{
    const bool lively = InState(option, QStyle::State_HasFocus) || Hovered(option);
    const QColor accent = Accent(option);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(marked || lively ? accent : option.palette.color(QPalette::PlaceholderText));
    painter.setBrush(marked ? accent : option.palette.color(QPalette::Base));
}

}  // namespace

void DrawFlatButton(QPainter& painter, const QStyleOption& option, bool isDefault)
{
    const bool accented = isDefault || InState(option, QStyle::State_On);
    const QColor edge =
        accented && InState(option, QStyle::State_Enabled) ? Accent(option) : Edge(option);
    DrawPlate(painter, option.rect, ButtonFill(option),
              FocusedByKey(option) ? QPen(Accent(option), kRing) : QPen(edge));
}

void DrawFlatField(QPainter& painter, const QStyleOption& option)
{
    const bool active =
        InState(option, QStyle::State_HasFocus) && InState(option, QStyle::State_Enabled);
    const QColor edge = active            ? Accent(option)
                        : Hovered(option) ? option.palette.color(QPalette::PlaceholderText)
                                          : Edge(option);
    DrawPlate(painter, option.rect, option.palette.color(QPalette::Base), QPen(edge));
}

void DrawFlatCombo(QPainter& painter, const QStyleOption& option)
{
    QStyleOption plate(option);
    plate.state.setFlag(QStyle::State_On, false);
    DrawFlatButton(painter, plate, false);
    const QPointF middle(option.direction == Qt::RightToLeft ? option.rect.left() + 11.0
                                                             : option.rect.right() - 10.0,
                         option.rect.center().y() + 0.75);
    DrawChevron(painter, middle, 3.5, option.palette.color(QPalette::ButtonText));
}

void DrawFlatSpin(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up,
                  const QRect& down)
{
    DrawFlatField(painter, option);
    struct Arrow {
        QRect area;
        QStyle::SubControl part;
        QAbstractSpinBox::StepEnabledFlag step;
        qreal reach;
    };
    const std::array arrows{
        Arrow{up, QStyle::SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, -2.5},
        Arrow{down, QStyle::SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, 2.5}};
    for (const Arrow& arrow : arrows) {
        const bool steps =
            InState(option, QStyle::State_Enabled) && option.stepEnabled.testFlag(arrow.step);
        const bool pointed = steps && option.activeSubControls == arrow.part;
        if (pointed) {
            const auto fill =
                InState(option, QStyle::State_Sunken) ? QPalette::Mid : QPalette::Light;
            painter.fillRect(arrow.area, option.palette.color(fill));
        }
        DrawChevron(painter, QRectF(arrow.area).center(), arrow.reach,
                    option.palette.color(steps ? QPalette::Active : QPalette::Disabled,
                                         QPalette::ButtonText));
    }
}

void DrawFlatTab(QPainter& painter, const QStyleOptionTab& option)
{
    const bool chosen = InState(option, QStyle::State_Selected);
    if (!chosen && !Hovered(option)) {
        return;
    }
    QPainterPath shape;
    const QRectF area(option.rect);
    shape.addRoundedRect(area.adjusted(0, 0, 0, kRadius), kRadius, kRadius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(area, Qt::IntersectClip);
    QColor fill = option.palette.color(QPalette::Button);
    if (!chosen) {
        fill.setAlphaF(0.5F);
    }
    painter.fillPath(shape, fill);
    if (chosen) {
        painter.fillRect(QRectF(area.left(), area.bottom() - 2.0, area.width(), 2.0),
                         Accent(option));
    }
}

void DrawFocusRing(QPainter& painter, const QStyleOption& option)
{
    if (!InState(option, QStyle::State_KeyboardFocusChange)) {
        return;
    }
    DrawPlate(painter, option.rect, Qt::transparent, QPen(Accent(option), kRing));
}

void DrawTickBox(QPainter& painter, const QStyleOption& option)
{
    const bool partly = InState(option, QStyle::State_NoChange);
    const bool marked = InState(option, QStyle::State_On) || partly;
    SetMarkColours(painter, option, marked);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(box, 2.5, 2.5);
    const QColor mark = option.palette.color(QPalette::HighlightedText);
    if (partly) {
        const qreal inset = box.width() * 0.25;
        painter.fillRect(
            QRectF(box.left() + inset, box.center().y() - 1.0, box.width() - 2.0 * inset, 2.0),
            mark);
    } else if (marked) {
        DrawTick(painter, box, mark);
    }
}

void DrawRadio(QPainter& painter, const QStyleOption& option)
{
    const bool marked = InState(option, QStyle::State_On);
    SetMarkColours(painter, option, marked);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawEllipse(box);
    if (marked) {
        const qreal inset = box.width() * 0.3;
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(QPalette::HighlightedText));
        painter.drawEllipse(box.adjusted(inset, inset, -inset, -inset));
    }
}

void DrawFlatSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& groove,
                    const QRect& handle)
{
    const bool level = option.orientation == Qt::Horizontal;
    QRectF track(groove);
    const QPointF knob = QRectF(handle).center();
    QRectF filled(track);
    if (level) {
        track.setTop(knob.y() - kTrackHeight / 2.0);
        track.setHeight(kTrackHeight);
        filled = track;
        option.upsideDown ? filled.setLeft(knob.x()) : filled.setRight(knob.x());
    } else {
        track.setLeft(knob.x() - kTrackHeight / 2.0);
        track.setWidth(kTrackHeight);
        filled = track;
        option.upsideDown ? filled.setTop(knob.y()) : filled.setBottom(knob.y());
    }
    const bool enabled = InState(option, QStyle::State_Enabled);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Edge(option));
    painter.drawRoundedRect(track, kTrackHeight / 2.0, kTrackHeight / 2.0);
    painter.setBrush(Accent(option));
    painter.drawRoundedRect(filled, kTrackHeight / 2.0, kTrackHeight / 2.0);

    const bool held = InState(option, QStyle::State_Sunken) || FocusedByKey(option);
    const qreal radius = std::min(handle.width(), handle.height()) / 2.0 - 1.5;
    const QColor text = option.palette.color(QPalette::ButtonText);
    const QColor base = option.palette.color(QPalette::Base);
    const QColor face = text.lightness() > base.lightness() ? text : base;
    painter.setPen(held ? QPen(Accent(option), 2.0) : QPen(Edge(option)));
    painter.setBrush(Hovered(option) || held || !enabled ? face : face.darker(106));
    painter.drawEllipse(knob, radius, radius);
}

}  // namespace studio
