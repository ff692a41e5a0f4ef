#pragma once

#include "MaterialText.h"

#include <QStringList>

namespace studio {

/// From which line the value of each line comes; a permutation, so that no value is lost.
using FieldMoves = FieldPlaces;

inline constexpr FieldMoves kNoFieldMoves{0, 1, 2, 3, 4, 5};

/// Takes the values along with each name that stands in another line now.
[[nodiscard]] FieldMoves MovesOf(const QStringList& before, const QStringList& after);

/// What the names of the values become, for a person; empty when each keeps its own.
[[nodiscard]] QString NoteOn(const FieldMoves& moves, const QStringList& before,
                             const QStringList& after);

void MoveFields(CorvexDB::udtMaterial& material, const FieldMoves& moves);

}  // namespace studio
