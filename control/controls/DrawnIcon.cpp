#include "DrawnIcon.h"

#include <QIconEngine>
#include <QPainter>

#include <algorithm>

namespace CorvexMaterial {

namespace {

class DrawnEngine : public QIconEngine {
public:
    DrawnEngine(qreal units, std::function<void(QPainter&, QIcon::Mode)> draw)
        : m_units(units), m_draw(std::move(draw))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal side = std::min(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(Qt::NoBrush);
        painter->translate(rect.x() + (rect.width() - side) / 2,
                           rect.y() + (rect.height() - side) / 2);
        painter->scale(side / m_units, side / m_units);
        m_draw(*painter, mode);
        painter->restore();
    }

    [[nodiscard]] QIconEngine* clone() const override { return new DrawnEngine(m_units, m_draw); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

private:
    qreal m_units;
    std::function<void(QPainter&, QIcon::Mode)> m_draw;
};

}  // namespace

QIcon DrawnIcon(qreal units, std::function<void(QPainter&, QIcon::Mode)> draw)
{
    return QIcon(new DrawnEngine(units, std::move(draw)));
}

}  // namespace CorvexMaterial
