#include "HandlePainting.h"

#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>

namespace studio {
namespace {

using Kind = ProjectionHandle::Kind;
using Points = std::vector<QVector3D>;

// Over pictures of any colour: light lines with a dark rim.
const QColor kHalo(0, 0, 0, 150);
const QColor kOutline(255, 255, 255, 150);
const QColor kCardLine(255, 255, 255);
const QColor kCardFill(255, 255, 255, 28);
const QColor kHeld(255, 208, 66);
const std::array kAxisColours{QColor(242, 92, 84), QColor(112, 201, 87), QColor(82, 155, 255)};

constexpr double kRim = 2.5;
constexpr double kKnob = 5.0;
constexpr double kHead = 11.0;
constexpr int kFarAlpha = 90;

QPolygonF OnScreen(const Points& points, const ViewOfScene& view)
{
    QPolygonF line;
    for (const QVector3D& point : points) {
        if (const auto pixel = view.PixelOf(point)) {
            line << *pixel;
        }
    }
    return line;
}

class HandlePainter {
public:
    HandlePainter(QPainter& painter, const ProjectionHandles& handles, const ViewOfScene& view,
                  std::optional<ProjectionHandle> held)
        : m_painter(painter), m_handles(handles), m_view(view), m_held(held)
    {
        m_painter.setRenderHint(QPainter::Antialiasing);
    }

    void Outline()
    {
        for (const Points& line : m_handles.Outline()) {
            Line(OnScreen(line, m_view), kOutline, 1.0);
        }
    }

    void Card()
    {
        const TileCard& card = m_handles.card;
        const QVector3D across = card.half.x() * card.across;
        const QVector3D down = card.half.y() * card.down;
        const QPolygonF frame = OnScreen({card.centre - across - down, card.centre + across - down,
                                          card.centre + across + down, card.centre - across + down,
                                          card.centre - across - down},
                                         m_view);
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(kCardFill);
        m_painter.drawPolygon(frame);
        Line(frame, kCardLine, 1.5);
        Line(OnScreen({card.centre - down, m_handles.PlaceOf({Kind::Rotation, 0})}, m_view),
             kCardLine, 1.5);
        Knob({Kind::Width, 0}, false);
        Knob({Kind::Height, 0}, false);
        Knob({Kind::Size, 0}, false);
        Knob({Kind::Rotation, 0}, true);
    }

    void Ring(int axis)
    {
        // What lies behind the middle is dimmed.
        const Points ring = m_handles.Ring(axis);
        const QVector3D eye = m_view.TowardsEye(m_handles.middle);
        const QColor colour = ColourOf({Kind::Ring, axis});
        QColor far = colour;
        far.setAlpha(kFarAlpha);
        for (const bool isNear : {false, true}) {
            for (std::size_t i = 1; i < ring.size(); ++i) {
                const QVector3D between = (ring[i - 1] + ring[i]) / 2.0F - m_handles.middle;
                if ((QVector3D::dotProduct(between, eye) >= 0.0F) == isNear) {
                    Line(OnScreen({ring[i - 1], ring[i]}, m_view), isNear ? colour : far,
                         WidthOf({Kind::Ring, axis}), isNear);
                }
            }
        }
    }

    void Arrow(int axis)
    {
        if (!m_handles.PointsAside(axis, m_view)) {
            return;
        }
        const QPolygonF line = OnScreen({m_handles.middle, m_handles.ArrowTip(axis)}, m_view);
        if (line.size() < 2) {
            return;
        }
        const ProjectionHandle handle{Kind::Arrow, axis};
        Line(line, ColourOf(handle), WidthOf(handle) + 0.5);
        const QPointF way = line[1] - line[0];
        const double length = std::hypot(way.x(), way.y());
        if (length < 1.0) {
            return;
        }
        const QPointF along = way / length * kHead;
        const QPointF aside(-along.y() * 0.4, along.x() * 0.4);
        m_painter.setPen(QPen(kHalo, 1.0));
        m_painter.setBrush(ColourOf(handle));
        m_painter.drawPolygon(QPolygonF{line[1] + along * 0.4, line[1] - along * 0.6 + aside,
                                        line[1] - along * 0.6 - aside});
    }

private:
    [[nodiscard]] QColor ColourOf(ProjectionHandle handle) const
    {
        const bool isOfAxis = handle.kind == Kind::Arrow || handle.kind == Kind::Ring;
        return handle == m_held ? kHeld
               : isOfAxis       ? kAxisColours.at(static_cast<std::size_t>(handle.axis))
                                : kCardLine;
    }
    [[nodiscard]] double WidthOf(ProjectionHandle handle) const
    {
        return handle == m_held ? 3.0 : 2.0;
    }

    void Line(const QPolygonF& line, const QColor& colour, double width, bool hasRim = true)
    {
        m_painter.setBrush(Qt::NoBrush);
        if (hasRim) {
            m_painter.setPen(QPen(kHalo, width + kRim, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
            m_painter.drawPolyline(line);
        }
        m_painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawPolyline(line);
    }

    void Knob(ProjectionHandle handle, bool isRound)
    {
        const auto at = m_view.PixelOf(m_handles.PlaceOf(handle));
        if (!at) {
            return;
        }
        const double half = handle == m_held ? kKnob + 1.5 : kKnob;
        const QRectF box(at->x() - half, at->y() - half, 2.0 * half, 2.0 * half);
        m_painter.setPen(QPen(kHalo, 1.5));
        m_painter.setBrush(ColourOf(handle));
        isRound ? m_painter.drawEllipse(box) : m_painter.drawRoundedRect(box, 1.5, 1.5);
    }

    QPainter& m_painter;
    const ProjectionHandles& m_handles;
    const ViewOfScene& m_view;
    std::optional<ProjectionHandle> m_held;
};

}  // namespace

void PaintHandles(QPainter& painter, const ProjectionHandles& handles, const ViewOfScene& view,
                  std::optional<ProjectionHandle> held)
{
    HandlePainter paint(painter, handles, view, held);
    paint.Outline();
    for (int axis = 0; axis < 3; ++axis) {
        paint.Ring(axis);
    }
    for (int axis = 0; axis < 3; ++axis) {
        paint.Arrow(axis);
    }
    paint.Card();
}

void PaintValue(QPainter& painter, QPointF pointer, const QString& text)
{
    if (text.isEmpty()) {
        return;
    }
    constexpr QPointF kBeside(18.0, 18.0);
    constexpr double kMargin = 6.0;
    const QFontMetricsF metrics(painter.font());
    const QRectF box(pointer + kBeside, QSizeF(metrics.horizontalAdvance(text) + 2.0 * kMargin,
                                               metrics.height() + kMargin));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(20, 22, 26, 220));
    painter.drawRoundedRect(box, 4.0, 4.0);
    painter.setPen(Qt::white);
    painter.drawText(box, Qt::AlignCenter, text);
}

}  // namespace studio
