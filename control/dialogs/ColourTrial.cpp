#include "ColourTrial.h"

#include "Trial.h"

namespace CorvexMaterial {

void ColourTrial::Open(std::optional<Colour> initial, QWidget& beside, const Answers& answers)
{
    const auto close = [this, closed = answers.closed](std::optional<Colour> chosen) {
        m_trial.End();
        closed(chosen);
    };
    m_trial.Begin({[this] {
                       if (m_open != nullptr) {
                           m_open->Accept();
                       }
                   },
                   [this, close] {
                       m_open.reset();
                       close(std::nullopt);
                   }});
    m_open.reset();
    try {
        m_open = m_choosers.OpenColour({initial, &beside, answers.tried, close});
    } catch (...) {
        close(std::nullopt);
        throw;
    }
}

}  // namespace CorvexMaterial
