#pragma once

#include "LibraryFile.h"
#include <CorvexMaterial/CorvexSG.h>

#include <map>
#include <memory>

namespace studio {

/// A material of a scene and how many shapes wear it.
struct SceneMaterialUse {
    const void* identity = nullptr;  ///< what tells it from others, as long as it is there
    std::string name;
    std::shared_ptr<const CorvexSG::GatheredMaterial> material;
    int shapes = 0;
};

/// The materials of the open scene as a library that only reads: in memory, searched, shown and
/// dragged from as those that are files.
class SceneLibrary {
public:
    /// What the control opens it by; no file has this name.
    static constexpr const char* kName = "*scene*";

    SceneLibrary();

    [[nodiscard]] LibraryFile& File() { return m_file; }
    /// Makes the entries those of the scene, at the cost of what has changed. Whether anything has.
    bool Follow(const std::vector<SceneMaterialUse>& uses, const std::vector<std::string>& fields);
    /// Nothing for an entry that is gone.
    [[nodiscard]] const SceneMaterialUse* UseOf(EntryId id) const;
    void SetPicture(EntryId id, const std::string& png);

private:
    template <typename Work>
    void Writing(const Work& work);

    LibraryFile m_file;
    std::map<EntryId, SceneMaterialUse> m_uses;
    std::map<const void*, EntryId> m_ids;
};

}  // namespace studio
