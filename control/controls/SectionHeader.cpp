#include "SectionHeader.h"

#include <QPainter>
#include <QStyleOption>

namespace CorvexMaterial {

namespace {

constexpr int kLeastHeight = 26;
constexpr int kAroundText = 8;
constexpr int kArrowArea = 22;

}  // namespace

SectionHeader::SectionHeader(const QString& title, QWidget* parent) : QCheckBox(title, parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

QSize SectionHeader::sizeHint() const
{
    const QSize title = fontMetrics().size(Qt::TextShowMnemonic, text());
    return {kArrowArea + title.width() + kAroundText,
            std::max(kLeastHeight, title.height() + kAroundText)};
}

bool SectionHeader::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void SectionHeader::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor band = palette().color(QPalette::Button);
    if (underMouse() && isEnabled()) {
        band = band.lighter(112);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(band);
    painter.drawRoundedRect(rect(), 3, 3);

    QStyleOption arrow;
    arrow.initFrom(this);
    arrow.rect = QRect(6, (height() - 10) / 2, 10, 10);
    style()->drawPrimitive(isChecked() ? QStyle::PE_IndicatorArrowDown
                                       : QStyle::PE_IndicatorArrowRight,
                           &arrow, &painter, this);

    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    const QRect textArea = rect().adjusted(kArrowArea, 0, -6, 0);
    painter.drawText(
        textArea, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic,
        fontMetrics().elidedText(text(), Qt::ElideRight, textArea.width(), Qt::TextShowMnemonic));
    if (hasFocus() && arrow.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }
}

void SectionHeader::enterEvent(QEnterEvent* event)
{
    QCheckBox::enterEvent(event);
    update();
}

void SectionHeader::leaveEvent(QEvent* event)
{
    QCheckBox::leaveEvent(event);
    update();
}

}  // namespace CorvexMaterial
