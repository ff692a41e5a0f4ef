#pragma once

#include "ImportedModel.h"

#include <QByteArray>

#include <span>

namespace studio {

/// The form in which the importing process hands a file's content back. Private to one build of the
/// studio: numbers are in the machine's own order, and the head has a version.
[[nodiscard]] QByteArray PackModel(const ImportedModel& model);

/// Trusts no byte: every count is checked against what is left before anything is reserved, every
/// index against its list, every number for being finite and every attribute for being in its
/// range. Errors: FileFailed, with the reason.
[[nodiscard]] ImportedModel UnpackModel(std::span<const std::byte> bytes);

}  // namespace studio
