#include "TextureThumbnail.h"

#include "Checkerboard.h"
#include "DroppedFile.h"
#include <CorvexMaterial/LegibleColours.h>
#include <CorvexMaterial/PlainText.h>

#include <QApplication>
#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace CorvexMaterial {

namespace {

constexpr int kThumbnailSide = 104;
constexpr int kFrame = 3;

QString Hint(ThumbnailState state)
{
    switch (state) {
    case ThumbnailState::Missing:
        return TextureThumbnail::tr("File not\nfound");
    case ThumbnailState::Unreadable:
        return TextureThumbnail::tr("No preview");
    default:
        return TextureThumbnail::tr("Drop an\nimage here");
    }
}

}  // namespace

TextureThumbnail::TextureThumbnail(ThumbnailCache& cache, TextureLayer layer, QWidget* parent)
    : QAbstractButton(parent), m_cache(cache), m_layer(layer)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAcceptDrops(true);
    SetFile({});
}

QSize TextureThumbnail::sizeHint() const
{
    return {kThumbnailSide, kThumbnailSide};
}

void TextureThumbnail::SetFile(const std::string& file)
{
    m_file = file;
    ShowTip();
    Refresh();
}

void TextureThumbnail::SetCrop(const CorvexDB::TexturePlacement& crop)
{
    m_crop = crop;
    ShowTip();
    update();
}

void TextureThumbnail::ShowTip()
{
    const bool isCropped = !(m_crop == CorvexDB::TexturePlacement());
    const QString file = QString::fromStdString(m_file);
    setToolTip(file.isEmpty() ? tr("Choose an image file")
               : isCropped    ? PlainTip(tr("%1\nCropped: what is dimmed is not used").arg(file))
                              : PlainTip(file));
}

void TextureThumbnail::Refresh()
{
    m_stale = true;
    update();
}

const Thumbnail& TextureThumbnail::Shown()
{
    if (m_stale) {
        m_shown = m_cache.Get(QString::fromStdString(m_file));
        m_stale = false;
    }
    return m_shown;
}

void TextureThumbnail::paintEvent(QPaintEvent* /*event*/)
{
    const Thumbnail& shown = Shown();
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (shown.state == ThumbnailState::Picture) {
        PaintPicture(painter, shown.picture);
    } else {
        PaintNothing(painter, shown.state);
    }
    const bool marked = hasFocus() || m_dropTarget;
    const bool inviting = shown.state == ThumbnailState::Empty && !marked;
    QPen pen(marked ? palette().color(QPalette::Highlight) : EdgeOf(palette()), marked ? 2.0 : 1.0);
    pen.setStyle(inviting ? Qt::DashLine : Qt::SolidLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

void TextureThumbnail::PaintPicture(QPainter& painter, const QPixmap& picture) const
{
    const QRect frame = rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
    QRect area(QPoint(),
               picture.size().scaled(frame.size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    area.moveCenter(frame.center());
    if (picture.hasAlphaChannel()) {
        PaintCheckerboard(painter, area);
    }
    painter.setOpacity(isEnabled() ? 1.0 : 0.4);
    painter.drawPixmap(area, picture);
    painter.setOpacity(1.0);
    PaintCrop(painter, area);
}

void TextureThumbnail::PaintCrop(QPainter& painter, const QRectF& area) const
{
    const QSizeF size = area.size();
    const QRectF crop = QRectF(area.x() + static_cast<qreal>(m_crop.originU) * size.width(),
                               area.y() + static_cast<qreal>(m_crop.originV) * size.height(),
                               static_cast<qreal>(m_crop.scaleU) * size.width(),
                               static_cast<qreal>(m_crop.scaleV) * size.height())
                            .normalized()
                            .intersected(area);
    if (crop == area) {
        return;
    }
    QColor pale = palette().color(QPalette::Window);
    pale.setAlphaF(0.75F);
    QPainterPath outside;
    outside.addRect(area);
    outside.addRect(crop);
    painter.fillPath(outside, pale);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(crop);
}

void TextureThumbnail::PaintNothing(QPainter& painter, ThumbnailState state) const
{
    painter.setPen(palette().color(QPalette::PlaceholderText));
    QFont small = font();
    small.setPointSizeF(QFontInfo(small).pointSizeF() * 0.85);
    painter.setFont(small);
    painter.drawText(rect().adjusted(6, 6, -6, -6), Qt::AlignCenter | Qt::TextWordWrap,
                     Hint(state));
}

void TextureThumbnail::SetDropTarget(bool target)
{
    m_dropTarget = target;
    update();
}

void TextureThumbnail::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->pos();
    QAbstractButton::mousePressEvent(event);
}

void TextureThumbnail::mouseMoveEvent(QMouseEvent* event)
{
    const bool isDrag = isDown() && (event->pos() - m_pressed).manhattanLength() >=
                                        QApplication::startDragDistance();
    if (isDrag && !m_file.empty()) {
        setDown(false);  // no click comes after a drag
        DragFrom(*this);
    } else {
        QAbstractButton::mouseMoveEvent(event);
    }
}

void TextureThumbnail::DragFrom(QWidget& widget)
{
    DragLayer(widget, *parentWidget(), m_layer, Shown().picture);
}

std::optional<TextureLayer> TextureThumbnail::OtherLayer(const QDropEvent& event) const
{
    const auto layer = DraggedLayer(event, *parentWidget());
    return layer == m_layer ? std::nullopt : layer;
}

void TextureThumbnail::dragEnterEvent(QDragEnterEvent* event)
{
    if (OtherLayer(*event)) {
        AcceptLayer(*event);
    } else if (DroppedFile(*event).isEmpty()) {
        event->ignore();
        return;
    } else {
        event->acceptProposedAction();
    }
    SetDropTarget(true);
}

// Alt and Ctrl may be pressed on the way.
void TextureThumbnail::dragMoveEvent(QDragMoveEvent* event)
{
    if (OtherLayer(*event)) {
        AcceptLayer(*event);
    } else {
        event->acceptProposedAction();
    }
}

void TextureThumbnail::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    SetDropTarget(false);
}

void TextureThumbnail::dropEvent(QDropEvent* event)
{
    SetDropTarget(false);
    if (const auto layer = OtherLayer(*event)) {
        Q_EMIT LayerDropped(*layer, AcceptLayer(*event));
        return;
    }
    const QString file = DroppedFile(*event);
    if (file.isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    Q_EMIT FileDropped(file);
}

}  // namespace CorvexMaterial
