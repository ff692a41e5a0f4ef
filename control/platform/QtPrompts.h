#pragma once

#include <CorvexMaterial/Prompts.h>

namespace CorvexMaterial {

struct DialogParent;

class QtPrompts final : public Prompts {
public:
    explicit QtPrompts(const DialogParent& parent);
    void Show(const Message& message) override;
    bool AskYesNo(const Message& question) override;

private:
    const DialogParent& m_parent;
};

}  // namespace CorvexMaterial
