#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace studio {

/// The keys that `AssignMaterial` knows, each with what it takes.
[[nodiscard]] QStringList MaterialKeys();

/// Changes one attribute from a text `key=value`: a colour is a name of the colour list or
/// "#rrggbb", an alpha test a name of its list or a position, a flag "yes" or "no". Returns what is
/// wrong with the text; the material is unchanged then.
[[nodiscard]] std::optional<QString> AssignMaterial(CorvexDB::udtMaterial& material,
                                                    const QString& assignment);

/// What is wrong with the first of them with which something is.
[[nodiscard]] std::optional<QString> FirstWrongAssignment(const QStringList& assignments);

}  // namespace studio
