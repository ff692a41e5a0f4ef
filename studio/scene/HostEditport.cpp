#include "studio/scene/HostEditport.h"

#include <QPainter>
#include <QPalette>

namespace studio {

namespace {

// Quiet, but readable on any background.
QColor TextColourOn(const QColor& background)
{
    const bool dark = qGray(background.rgb()) < 128;
    const int strength = 165;
    const int ground = 255 - strength;
    const auto mix = [&](int component) {
        return ((dark ? 255 : 0) * strength + component * ground) / 255;
    };
    return {mix(background.red()), mix(background.green()), mix(background.blue())};
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
