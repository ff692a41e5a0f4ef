#pragma once

#include "JournalText.h"
#include "OwnerLock.h"

#include <QImage>

#include <string>
#include <vector>

namespace studio {

/// The journal of a window whose program is gone, which nobody else looks at meanwhile. Movable;
/// its files stay unless it is discarded.
class LeftJournal {
public:
    LeftJournal(std::string name, CorvexMaterial::OwnerLock lock, JournalContent content);

    [[nodiscard]] const JournalHead& Head() const { return m_content.head; }
    /// When the last one was made, what it was, and how many.
    [[nodiscard]] const JournalEdits& Edits() const { return m_content.edits; }
    /// Null where nobody has seen the scene.
    [[nodiscard]] QImage Picture() const;
    /// Whether the base is gone, or another than the one that was edited.
    [[nodiscard]] bool BaseIsMissing() const;
    [[nodiscard]] bool BaseIsChanged() const;
    /// Whether the program ended between the save and the removal of what it made needless.
    [[nodiscard]] bool IsSaved() const;

    /// The base, which the caller has opened, with the edits. A problem is what does not come back,
    /// for a person: in a base that has changed, shapes are found by place and name, else by name.
    [[nodiscard]] SceneContent Restored(SceneContent base,
                                        std::vector<std::string>& problems) const;
    /// Its edits are somewhere else now, or nobody wants them.
    void Discard();

private:
    std::string m_name;  ///< of the files, without their suffix
    CorvexMaterial::OwnerLock m_lock;
    JournalContent m_content;
};

struct LeftJournals {
    std::vector<LeftJournal> found;    ///< the latest edit first
    std::vector<std::string> refused;  ///< left where they are; why, for a person
    /// Of windows that are open, or of a program that the system has not quite ended yet.
    int held = 0;
};

/// Those of a state folder. What else a program that was killed left there is removed.
[[nodiscard]] LeftJournals FindLeftJournals(const std::string& stateFolder);

}  // namespace studio
