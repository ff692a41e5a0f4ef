#pragma once

#include "ColourHistory.h"
#include <CorvexMaterial/Prompts.h>

namespace CorvexMaterial {

struct DialogParent;

class QtChoosers final : public Choosers {
public:
    /// Both outlive this object.
    QtChoosers(const DialogParent& parent, SettingsStore& settings);
    std::optional<Colour> ChooseColour(std::optional<Colour> initial) override;
    std::unique_ptr<OpenColourDialog> OpenColour(const ColourRequest& request) override;
    std::optional<std::string> ChooseFile(const FileRequest& request) override;

private:
    const DialogParent& m_parent;
    ColourHistory m_history;
};

}  // namespace CorvexMaterial
