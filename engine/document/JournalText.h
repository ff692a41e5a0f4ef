#pragma once

// The lines of a file of edits. Each has a check of its own in front, so that the one that a kill
// cut off is told from the others.

#include "SceneContent.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace studio {

/// What holds the meshes, and everything else that nobody edited.
struct JournalBase {
    enum class Kind : std::uint8_t { DefaultScene, Model, Document };

    Kind kind = Kind::DefaultScene;
    FileStamp file;    ///< of a model or document
    std::string mark;  ///< how often a document was saved; empty for others

    bool operator==(const JournalBase&) const = default;
};

/// As the file is now.
[[nodiscard]] JournalBase BaseAt(JournalBase::Kind kind, const std::string& path);

/// What belongs to no shape.
struct JournalAround {
    TexturePlace textures = TexturePlace::Referenced;
    std::vector<NamedView> views{};

    bool operator==(const JournalAround&) const = default;
};

struct JournalHead {
    JournalBase base;
    std::string name;          ///< of the work, for a person
    std::int64_t started = 0;  ///< milliseconds since 1970, UTC, as all times here
    JournalAround around{};    ///< of the base, which has it itself
};

/// What a user edits of a shape.
struct EditedShape {
    std::size_t place = 0;
    ShapeOption option = ShapeOption::Smooth;
    QMatrix4x4 placement;
    std::array<double, 3> moved{};
    AppliedMaterial applied;
    ShapeFlags flags{};

    EditedShape() = default;
    EditedShape(std::size_t at, const ShapeState& state)
        : place(at), option(state.option), placement(state.placement), moved(state.moved),
          applied(state.applied), flags(state.flags)
    {
    }
    /// Leaves what nobody edits as it is.
    void PutInto(ShapeState& state) const
    {
        state.option = option;
        state.placement = placement;
        state.moved = moved;
        state.applied = applied;
        state.flags = flags;
    }
    [[nodiscard]] bool IsAsIn(const ShapeState& state) const
    {
        return applied == state.applied && StandsAsIn(state);
    }
    [[nodiscard]] bool StandsAsIn(const ShapeState& state) const
    {
        return applied.coordinates == state.applied.coordinates && option == state.option &&
               moved == state.moved && placement == state.placement && flags == state.flags;
    }
};

/// A save that has everything so far, once the document there has the mark.
struct JournalSaving {
    std::string path;
    std::int64_t mark = 0;  ///< 0: there is none
};

/// What several edits have changed.
struct JournalEdits {
    std::int64_t made = 0;  ///< the latest
    int count = 0;          ///< of edits, from the start
    std::string what;       ///< the latest, as the undo history says it
    std::optional<Camera> camera;
    std::optional<std::vector<NamedView>> views;  ///< where they are others than in the base
    std::optional<TexturePlace> textures;         ///< where it is another than in the base
    JournalSaving saving{};                       ///< that was begun after the latest
};

/// Makes lines and remembers what the file has.
class JournalWriting {
public:
    /// Textures in the folder are stored relative to it.
    JournalWriting(std::vector<ShapeState> base, std::string folder);

    [[nodiscard]] const std::vector<ShapeState>& Base() const { return m_base; }
    [[nodiscard]] static std::string HeadLine(const JournalHead& head);
    [[nodiscard]] std::string EditsLine(const JournalEdits& edits,
                                        const std::map<std::size_t, EditedShape>& shapes);
    /// The lines that follow go to a new file.
    void BeginFile();

private:
    [[nodiscard]] int IdentityOf(const std::shared_ptr<const SceneMaterial>& identity);

    std::vector<ShapeState> m_base;
    std::string m_folder;
    std::map<MaterialKey, int> m_materials;
    std::set<std::size_t> m_moved;  ///< places of which the file says more than the material
    std::map<std::shared_ptr<const SceneMaterial>, int> m_identities;
};

/// What all lines together say.
struct JournalContent {
    struct Shape {
        std::string name;
        std::string state;  ///< JSON; empty for that of the base
        int material = -1;
    };
    struct Material {
        std::string name;
        int identity = -1;  ///< those of the base are called after the first shape that has it
        std::int64_t mode = 0;
        std::string json;
    };

    JournalHead head;
    JournalEdits edits;
    std::map<std::size_t, Shape> shapes;  ///< by place in the base
    std::map<int, Material> materials;
};

/// A last line that was cut off is left out. Errors: FileFailed, with the cause alone.
[[nodiscard]] JournalContent ReadJournal(std::string_view text);

}  // namespace studio
