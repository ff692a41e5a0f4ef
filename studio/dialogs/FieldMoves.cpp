#include "FieldMoves.h"

#include "Tr.h"

#include <algorithm>
#include <optional>

namespace studio {

FieldMoves MovesOf(const QStringList& before, const QStringList& after)
{
    std::array<std::optional<std::size_t>, CorvexDB::kCustomFieldCount> from;
    std::array<bool, CorvexDB::kCustomFieldCount> taken{};
    const auto take = [&](std::size_t line, std::size_t source) {
        if (!from[line] && source < taken.size() && !taken[source]) {
            from[line] = source;
            taken[source] = true;
        }
    };
    for (std::size_t line = 0; line < from.size(); ++line) {
        if (const QString name = after.value(static_cast<int>(line)); !name.isEmpty()) {
            take(line, static_cast<std::size_t>(before.indexOf(name)));
        }
    }
    for (std::size_t line = 0; line < from.size(); ++line) {
        take(line, line);
    }
    FieldMoves moves{};
    for (std::size_t line = 0; line < from.size(); ++line) {
        take(line, static_cast<std::size_t>(std::ranges::find(taken, false) - taken.begin()));
        moves[line] = *from[line];
    }
    return moves;
}

QString NoteOn(const FieldMoves& moves, const QStringList& before, const QStringList& after)
{
    QStringList notes;
    for (std::size_t line = 0; line < moves.size(); ++line) {
        const QString old = before.value(static_cast<int>(moves[line]));
        const QString name = after.value(static_cast<int>(line));
        if (old != name && !old.isEmpty()) {
            notes << (name.isEmpty() ? Tr("What was entered for %1 is kept but not shown.").arg(old)
                                     : Tr("What was entered for %1 is called %2.").arg(old, name));
        }
    }
    return notes.join(u'\n');
}

void MoveFields(CorvexDB::udtMaterial& material, const FieldMoves& moves)
{
    const auto before = material.CustomFields;
    for (std::size_t line = 0; line < moves.size(); ++line) {
        material.CustomFields[line] = before[moves[line]];
    }
}

}  // namespace studio
