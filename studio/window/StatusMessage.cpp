#include "StatusMessage.h"

#include <CorvexMaterial/PlainText.h>

#include <chrono>

namespace studio {

StatusMessage::StatusMessage(QWidget* parent) : QLabel(parent)
{
    using namespace std::chrono_literals;
    setTextFormat(Qt::PlainText);  // it shows names that come from files
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_age.setSingleShot(true);
    m_age.setInterval(10s);
    connect(&m_age, &QTimer::timeout, this, [this] { Put(m_lasting); });
}

void StatusMessage::Show(const QString& message)
{
    Put(message.isEmpty() ? m_lasting : message);
    message.isEmpty() ? m_age.stop() : m_age.start();
}

void StatusMessage::SetLasting(const QString& text)
{
    m_lasting = text;
    if (!m_age.isActive()) {
        Put(text);
    }
}

void StatusMessage::Put(const QString& text)
{
    setText(text);
    setToolTip(CorvexMaterial::PlainTip(text));  // a long one is cut off
}

}  // namespace studio
