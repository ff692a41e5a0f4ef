#include "SceneLibrary.h"

#include "MaterialName.h"
#include "MaterialText.h"
#include "StoredPath.h"
#include "Tr.h"

#include <QScopeGuard>

#include <set>

namespace studio {
namespace {

std::string WhyFixed()
{
    return Tr("it follows the scene; give a shape another material instead").toStdString();
}

}  // namespace

SceneLibrary::SceneLibrary() : m_file(LibraryFile::InMemory(LibraryKind::Materials))
{
    m_file.SetReadOnly(WhyFixed());
}

template <typename Work>
void SceneLibrary::Writing(const Work& work)
{
    m_file.SetReadOnly({});
    const auto again = qScopeGuard([this] { m_file.SetReadOnly(WhyFixed()); });
    work();
}

bool SceneLibrary::Follow(const std::vector<SceneMaterialUse>& uses,
                          const std::vector<std::string>& fields)
{
    const std::string folder = FolderOf(m_file.Path());
    const auto entryOf = [&](const SceneMaterialUse& use) {
        const auto& material = use.material->material;
        return EntryOfMaterial({use.name.empty() ? DescriptiveName(material) : use.name, material},
                               folder, fields);
    };
    std::set<const void*> present;
    std::vector<NewEntry> added;
    std::vector<const SceneMaterialUse*> addedUses;
    bool isChanged = false;
    Writing([&] {
        for (const SceneMaterialUse& use : uses) {
            present.insert(use.identity);
            const auto known = m_ids.find(use.identity);
            if (known == m_ids.end()) {
                added.push_back(entryOf(use));
                addedUses.push_back(&use);
                continue;
            }
            SceneMaterialUse& before = m_uses[known->second];
            if (before.material != use.material) {
                m_file.Replace(known->second, entryOf(use));
            }
            if (before.name != use.name || (use.name.empty() && before.material != use.material)) {
                m_file.Rename(known->second, entryOf(use).name);
            }
            isChanged = isChanged || before.material != use.material || before.name != use.name ||
                        before.shapes != use.shapes;
            before = use;
        }
        std::vector<EntryId> gone;
        std::erase_if(m_ids, [&](const auto& row) {
            const bool isGone = !present.contains(row.first);
            if (isGone) {
                gone.push_back(row.second);
                m_uses.erase(row.second);
            }
            return isGone;
        });
        if (!gone.empty()) {
            m_file.Remove(gone);
            m_file.EmptyTrash();
        }
        const std::vector<EntryId> ids = m_file.Add(added);
        for (std::size_t i = 0; i < ids.size(); ++i) {
            m_ids[addedUses[i]->identity] = ids[i];
            m_uses[ids[i]] = *addedUses[i];
        }
        isChanged = isChanged || !gone.empty() || !ids.empty();
    });
    return isChanged;
}

const SceneMaterialUse* SceneLibrary::UseOf(EntryId id) const
{
    const auto use = m_uses.find(id);
    return use == m_uses.end() ? nullptr : &use->second;
}

void SceneLibrary::SetPicture(EntryId id, const std::string& png)
{
    Writing([&] { m_file.SetThumbnails(std::vector<EntryPicture>{{id, png}}); });
}

}  // namespace studio
