#pragma once

#include <CorvexMaterial/Prompts.h>

#include <QObject>

#include <vector>

namespace studio {

/// Keeps messages that come while the program starts until its window is there: a box in front of
/// nothing would be the first that a user sees.
class LatePrompts : public QObject, public CorvexMaterial::Prompts {
    Q_OBJECT

public:
    /// The prompts outlive this object.
    explicit LatePrompts(CorvexMaterial::Prompts& prompts) : m_prompts(prompts) {}

    void Show(const CorvexMaterial::Message& message) override;
    /// A question cannot wait.
    bool AskYesNo(const CorvexMaterial::Message& question) override;

    /// From the next turn of the event loop on messages are shown as they come.
    void Begin();
    /// Muted, nothing is shown and every answer is No: nobody is there.
    void SetMuted(bool muted) { m_muted = muted; }

private:
    void ShowKept();

    CorvexMaterial::Prompts& m_prompts;
    std::vector<CorvexMaterial::Message> m_kept;
    bool m_begun = false;
    bool m_muted = false;
};

}  // namespace studio
