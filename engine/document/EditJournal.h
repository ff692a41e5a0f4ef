#pragma once

#include "JournalText.h"
#include "StudioScene.h"

#include <QImage>

#include <functional>
#include <memory>
#include <string>

namespace studio {

/// What was edited since a scene was opened or saved, in a file of the state folder that is on the
/// disk at most half a second after an edit, so that it outlives the program. One for each window;
/// it writes on a thread of its own. There is no file as long as nothing has been edited.
class EditJournal {
public:
    /// Called on the journal's thread, once for what fails again and again.
    using Trouble = std::function<void(const std::string& message)>;

    EditJournal(const std::string& stateFolder, Trouble trouble);
    /// The user has saved, or wants to do without: nothing is left.
    ~EditJournal();
    EditJournal(const EditJournal&) = delete;
    EditJournal& operator=(const EditJournal&) = delete;

    /// What was journalled is saved, or not wanted any more; from now on edits count from here.
    void Begin(JournalBase base, std::string name, const StudioScene::Shapes& shapes,
               JournalAround around);
    /// Of the meshes that shapes have at the next call of `Record`, if they are others.
    void SetBase(JournalBase base) { m_head.base = std::move(base); }
    /// Nothing happens unless shapes or what is around them have changed since the last call.
    void Record(const StudioScene::Shapes& shapes, const JournalAround& around,
                const Camera& camera, std::string_view what, int edits = 1);
    /// What the scene looks like now, for a person who is asked whether he wants it back.
    void Show(const QImage& picture);
    /// Whether everything is on the disk now. What is left is needless once the save is done that
    /// begins then.
    bool Flush(const JournalSaving& saving = {});
    /// The next start of the program shall find it.
    void Leave();

private:
    class Writer;

    std::unique_ptr<Writer> m_writer;
    JournalHead m_head;
};

/// Where the journals of a state folder are.
[[nodiscard]] std::string RecoveryFolder(const std::string& stateFolder);

}  // namespace studio
