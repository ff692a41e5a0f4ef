#include "studio/scene/HostEditport.h"

#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

// Of one colour against another, from 1 to 21; text is read with ease from 4.5.
double Contrast(const QColor& first, const QColor& second)
{
    const auto linear = [](float value) { return std::pow(static_cast<double>(value), 2.2); };
    const auto light = [&](const QColor& colour) {
        return 0.05 + 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({light(first), light(second)});
    return lighter / darker;
}

QColor Mixed(const QColor& ink, const QColor& ground, int percent)
{
    const auto mix = [percent](int from, int to) {
        return (from * percent + to * (100 - percent)) / 100;
    };
    return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()),
            mix(ink.blue(), ground.blue())};
}

// As quiet as can be read on this background.
QColor TextColourOn(const QColor& background)
{
    const bool darkInk = Contrast(Qt::black, background) > Contrast(Qt::white, background);
    const QColor ink(darkInk ? Qt::black : Qt::white);
    int percent = 60;
    while (percent < 100 && Contrast(Mixed(ink, background, percent), background) < 4.5) {
        percent += 5;
    }
    return Mixed(ink, background, percent);
}

}  // namespace

HostEditport::HostEditport(CorvexEditport::BrowserKind kind, QWidget* parent)
    : QWidget(parent), m_kind(kind), m_background(palette().color(QPalette::Base))
{
}

void HostEditport::ShowItems(std::int32_t count)
{
    m_count = count;
    update();
}

void HostEditport::Clear()
{
    m_count = -1;
    update();
}

void HostEditport::SetBackColor(CorvexMaterial::Colour colour)
{
    const auto bytes = CorvexMaterial::BytesOf(colour);
    m_background = QColor(bytes.red, bytes.green, bytes.blue);
    update();
}

QString HostEditport::Text() const
{
    if (m_count < 0) {
        return tr("No library is open.");
    }
    return m_kind == CorvexEditport::BrowserKind::Materials ? tr("%n material(s)", nullptr, m_count)
                                                            : tr("%n texture(s)", nullptr, m_count);
}

void HostEditport::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_background);
    painter.setPen(TextColourOn(m_background));
    painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, Text());
}

CorvexEditport::Editport* HostEditportFactory::CreateEditport(QWidget* parent,
                                                              CorvexEditport::BrowserKind kind)
{
    return new HostEditport(kind, parent);
}

}  // namespace studio
