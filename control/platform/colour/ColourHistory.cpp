#include "ColourHistory.h"

#include "HsvColour.h"
#include <CorvexMaterial/Status.h>

#include <QStringList>

#include <algorithm>

namespace CorvexMaterial {

namespace {

const SettingAddress kAddress{"Colors", "Colors", "Recent"};

}  // namespace

std::vector<Colour> ColourHistory::Colours() const
{
    std::vector<Colour> colours;
    try {
        const QString kept = QString::fromStdString(m_settings.Read(kAddress).value_or(""));
        for (const QString& name : kept.split(u' ', Qt::SkipEmptyParts)) {
            if (const QColor colour(name); colour.isValid() && colours.size() < kMost) {
                colours.push_back(ColourOf(colour));
            }
        }
    } catch (const Error&) {
        return colours;
    }
    return colours;
}

void ColourHistory::Add(Colour colour)
{
    QStringList names{ShownOf(colour).name()};
    for (const Colour other : Colours()) {
        if (other != colour && names.size() < static_cast<qsizetype>(kMost)) {
            names << ShownOf(other).name();
        }
    }
    try {
        m_settings.Write(kAddress, names.join(u' ').toStdString());
        m_settings.Flush(kAddress.application);
    } catch (const Error&) {
        return;
    }
}

}  // namespace CorvexMaterial
