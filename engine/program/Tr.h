#pragma once

#include <QCoreApplication>
#include <QString>

namespace studio {

/// Translates a text of a function that belongs to no QObject.
inline QString Tr(const char* text)
{
    return QCoreApplication::translate("Studio", text);
}

}  // namespace studio
