#pragma once

#include <CorvexMaterial/Prompts.h>

namespace CorvexMaterial {

class Trial;

/// The colour dialog of a field, in which colours are tried before one becomes an edit.
class ColourTrial {
public:
    struct Answers {
        /// To be shown, with what it makes of the material.
        std::function<void(Colour)> tried;
        /// The end, after which nothing is tried any more: an edit, or none.
        std::function<void(std::optional<Colour>)> closed;
    };

    /// Both outlive this object.
    ColourTrial(Choosers& choosers, Trial& trial) : m_choosers(choosers), m_trial(trial) {}

    /// Near the widget. Throws what the chooser does, and is closed then.
    void Open(std::optional<Colour> initial, QWidget& beside, const Answers& answers);

private:
    Choosers& m_choosers;
    Trial& m_trial;
    std::unique_ptr<OpenColourDialog> m_open;
};

}  // namespace CorvexMaterial
