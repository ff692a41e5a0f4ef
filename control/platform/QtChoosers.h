#pragma once

#include <CorvexMaterial/Prompts.h>

namespace CorvexMaterial {

struct DialogParent;

class QtChoosers final : public Choosers {
public:
    explicit QtChoosers(const DialogParent& parent);
    std::optional<Colour> ChooseColour(std::optional<Colour> initial) override;
    std::optional<std::string> ChooseFile(const FileRequest& request) override;

private:
    const DialogParent& m_parent;
};

}  // namespace CorvexMaterial
