#pragma once

#include "LibraryEntry.h"
#include "LibrarySchema.h"
#include "LinkedEntry.h"

#include <QUndoStack>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace studio {

/// A change of one entry of a library, or of several in the same way.
struct LibraryEdit {
    enum class What { Add, Remove, Rename, Describe, Replace };

    What what = What::Add;
    LibraryKind kind = LibraryKind::Materials;
    std::string path;  ///< of the library
    std::vector<EntryId> ids;
    std::string name;    ///< of one entry, as it is after the change
    std::string before;  ///< of a rename
    // Of a description, by `ids`.
    std::vector<EntryDetails> details{};
    std::vector<EntryDetails> detailsBefore{};
    /// Of one that is replaced: the contents before and after.
    std::shared_ptr<const EntryReplacement> contents{};

    [[nodiscard]] LibraryEdit Reversed() const;
    /// The entry's name, or how many there are.
    [[nodiscard]] QString Described() const;
};

/// A step of the libraries' undo history: a change of a library, already made when the step is
/// pushed.
class LibraryStep : public QUndoCommand {
public:
    /// False when the change could not be made; the user knows then, and the step goes.
    using Make = std::function<bool(const LibraryEdit&)>;

    LibraryStep(LibraryEdit change, Make make);

    void undo() override;
    void redo() override;

private:
    LibraryEdit m_change;
    Make m_make;
    bool m_made = true;
};

}  // namespace studio
