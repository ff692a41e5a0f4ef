#include "LatePrompts.h"

#include <utility>

namespace studio {

void LatePrompts::Show(const CorvexMaterial::Message& message)
{
    if (m_muted) {
        return;
    }
    if (m_begun) {
        m_prompts.Show(message);
    } else {
        m_kept.push_back(message);
    }
}

bool LatePrompts::AskYesNo(const CorvexMaterial::Message& question)
{
    return !m_muted && m_prompts.AskYesNo(question);
}

void LatePrompts::Begin()
{
    QMetaObject::invokeMethod(this, &LatePrompts::ShowKept, Qt::QueuedConnection);
}

void LatePrompts::ShowKept()
{
    m_begun = true;
    for (const CorvexMaterial::Message& message : std::exchange(m_kept, {})) {
        Show(message);
    }
}

}  // namespace studio
