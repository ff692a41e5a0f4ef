#include "StatusText.h"

#include <QCoreApplication>

#include <array>

namespace studio {

QString TextOf(CorvexMaterial::Status status)
{
    static constexpr std::array kTexts{
        QT_TRANSLATE_NOOP("StatusText", "done"),
        QT_TRANSLATE_NOOP("StatusText", "not available in this version"),
        QT_TRANSLATE_NOOP("StatusText", "a value is outside its range"),
        QT_TRANSLATE_NOOP("StatusText", "a text is not a number"),
        QT_TRANSLATE_NOOP("StatusText", "there are too few values"),
        QT_TRANSLATE_NOOP("StatusText", "a number is too large"),
        QT_TRANSLATE_NOOP("StatusText", "a file cannot be used"),
        QT_TRANSLATE_NOOP("StatusText", "the graphics device cannot be used"),
        QT_TRANSLATE_NOOP("StatusText", "there is not enough memory"),
        QT_TRANSLATE_NOOP("StatusText", "an unexpected failure"),
    };
    static_assert(kTexts.size() == static_cast<std::size_t>(CorvexMaterial::Status::Failed) + 1);
    const auto index = static_cast<std::size_t>(status);
    return QCoreApplication::translate("StatusText",
                                       index < kTexts.size() ? kTexts[index] : kTexts.back());
}

}  // namespace studio
