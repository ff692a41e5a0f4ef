#include "TextureThumbnail.h"

#include "Checkerboard.h"
#include "DroppedFile.h"
#include <CorvexMaterial/LegibleColours.h>
#include <CorvexMaterial/PlainText.h>

#include <QFontInfo>
#include <QPainter>

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

TextureThumbnail::TextureThumbnail(ThumbnailCache& cache, QWidget* parent)
    : QAbstractButton(parent), m_cache(cache)
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
    setToolTip(file.empty() ? tr("Choose an image file") : PlainTip(QString::fromStdString(file)));
    Refresh();
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

void TextureThumbnail::dragEnterEvent(QDragEnterEvent* event)
{
    if (DroppedFile(*event).isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    SetDropTarget(true);
}

void TextureThumbnail::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    SetDropTarget(false);
}

void TextureThumbnail::dropEvent(QDropEvent* event)
{
    SetDropTarget(false);
    const QString file = DroppedFile(*event);
    if (file.isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    Q_EMIT FileDropped(file);
}

}  // namespace CorvexMaterial
