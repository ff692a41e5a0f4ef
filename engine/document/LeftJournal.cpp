#include "LeftJournal.h"

#include "AppendedFile.h"
#include "DocumentParts.h"
#include "EditJournal.h"
#include "FileWriting.h"
#include "JournalFile.h"
#include "RegularFile.h"
#include "SceneDocument.h"
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace studio {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kMostJournalBytes = std::int64_t{256} << 20;
constexpr std::int64_t kMostPictureBytes = std::int64_t{4} << 20;

std::string OwnContent(const std::string& path, std::int64_t mostBytes)
{
    std::string obstacle = CorvexMaterial::StrangerCause(path);
    if (obstacle.empty()) {
        const CorvexMaterial::RegularFile file(path, mostBytes);
        obstacle = file.Obstacle();
        if (obstacle.empty()) {
            return file.Content();
        }
    }
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, obstacle);
}

/// Puts the edits on a base.
class Restoring {
public:
    Restoring(const JournalContent& journal, std::string folder, SceneContent& content,
              std::vector<std::string>& problems)
        : m_journal(journal), m_folder(std::move(folder)), m_content(content), m_problems(problems)
    {
        for (std::size_t place = 0; place < content.shapes.size(); ++place) {
            m_places[content.shapes[place].name].push_back(place);
            m_baseIdentities.push_back(content.shapes[place].applied.identity);
        }
    }

    void Run()
    {
        for (const auto& [place, edited] : m_journal.shapes) {
            if (const auto found = PlaceOf(place, edited.name)) {
                Put(m_content.shapes[*found], edited);
            } else {
                m_problems.push_back("Shape \"" + edited.name +
                                     "\" is not there any more, and its changes are left out.");
            }
        }
        if (m_journal.edits.camera) {
            m_content.camera = m_journal.edits.camera;
        }
        m_content.views = m_journal.edits.views.value_or(m_content.views);
        m_content.textures = m_journal.edits.textures.value_or(m_content.textures);
    }

private:
    [[nodiscard]] std::optional<std::size_t> PlaceOf(std::size_t place,
                                                     const std::string& name) const
    {
        if (place < m_content.shapes.size() && m_content.shapes[place].name == name) {
            return place;
        }
        const auto places = m_places.find(name);
        return places != m_places.end() && places->second.size() == 1
                   ? std::optional(places->second.front())
                   : std::nullopt;
    }

    void Put(ShapeState& shape, const JournalContent::Shape& edited)
    {
        const CorvexSG::CoordinateMode coordinates = shape.applied.coordinates;
        if (const AppliedMaterial* material = MaterialOf(edited.material)) {
            shape.applied = *material;
            shape.applied.coordinates = coordinates;
        } else {
            m_problems.push_back("Shape \"" + shape.name + "\" has lost its material.");
        }
        if (!edited.state.empty() && !ReadShape(edited.state, shape)) {
            m_problems.push_back("Shape \"" + shape.name + "\" has lost its place.");
        }
    }

    const AppliedMaterial* MaterialOf(int id)
    {
        const auto stored = m_journal.materials.find(id);
        if (stored == m_journal.materials.end()) {
            return nullptr;
        }
        auto& made = m_materials[id];
        if (!made) {
            const JournalContent::Material& material = stored->second;
            made = SceneMaterialOfJson(material.json, material.name, material.mode, m_folder,
                                       m_problems);
            made->identity = IdentityOf(material, std::move(made->identity));
        }
        return &*made;
    }

    /// Shapes share what they shared, also with those that nobody edited.
    std::shared_ptr<const SceneMaterial> IdentityOf(const JournalContent::Material& material,
                                                    std::shared_ptr<const SceneMaterial> own)
    {
        if (material.identity < 0) {
            return nullptr;
        }
        const auto [row, isNew] = m_identities.emplace(material.identity, std::move(own));
        const auto place = static_cast<std::size_t>(material.identity);
        if (isNew && place < m_baseIdentities.size()) {
            const auto& base = m_baseIdentities[place];
            if (base != nullptr && base->name == material.name) {
                row->second = base;
            }
        }
        return row->second;
    }

    const JournalContent& m_journal;
    std::string m_folder;
    SceneContent& m_content;
    std::vector<std::string>& m_problems;
    std::map<std::string, std::vector<std::size_t>> m_places;
    std::vector<std::shared_ptr<const SceneMaterial>> m_baseIdentities;
    std::map<int, std::optional<AppliedMaterial>> m_materials;
    std::map<int, std::shared_ptr<const SceneMaterial>> m_identities;
};

/// Held when nobody else has it.
CorvexMaterial::OwnerLock Claim(const std::string& name)
{
    const std::string lock = name + kJournalLockSuffix;
    std::error_code ignored;
    return fs::exists(fs::symlink_status(lock, ignored)) ? CorvexMaterial::OwnerLock::TakeOver(lock)
                                                         : CorvexMaterial::OwnerLock::Make(lock);
}

void LookAt(const std::string& name, LeftJournals& journals)
{
    const std::string file = name + kJournalSuffix;
    CorvexMaterial::OwnerLock lock = Claim(name);
    if (!lock.Held()) {
        ++journals.held;
        return;
    }
    for (const char* suffix : {kJournalPictureSuffix, kJournalSuffix}) {
        CorvexMaterial::RemoveLeftover(name + suffix);
    }
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(file, ignored))) {
        fs::remove(name + kJournalPictureSuffix, ignored);
        return;
    }
    try {
        LeftJournal journal(name, std::move(lock),
                            ReadJournal(OwnContent(file, kMostJournalBytes)));
        if (journal.IsSaved()) {
            journal.Discard();
        } else {
            journals.found.push_back(std::move(journal));
        }
    } catch (const CorvexMaterial::Error& error) {
        journals.refused.push_back(file + " cannot be used: " + error.what());
    }
}

}  // namespace

LeftJournal::LeftJournal(std::string name, CorvexMaterial::OwnerLock lock, JournalContent content)
    : m_name(std::move(name)), m_lock(std::move(lock)), m_content(std::move(content))
{
}

QImage LeftJournal::Picture() const
{
    try {
        const std::string png = OwnContent(m_name + kJournalPictureSuffix, kMostPictureBytes);
        return QImage::fromData(QByteArray::fromStdString(png), "PNG");
    } catch (const CorvexMaterial::Error&) {
        return {};
    }
}

bool LeftJournal::BaseIsMissing() const
{
    const JournalBase& base = Head().base;
    std::error_code ignored;
    return base.kind != JournalBase::Kind::DefaultScene &&
           !fs::is_regular_file(base.file.path, ignored);
}

bool LeftJournal::BaseIsChanged() const
{
    JournalBase now = BaseAt(Head().base.kind, Head().base.file.path);
    // A save that was killed and taken back leaves all but the time as it was.
    if (now.kind == JournalBase::Kind::Document) {
        now.file.modified = Head().base.file.modified;
    }
    return now != Head().base;
}

bool LeftJournal::IsSaved() const
{
    const JournalSaving& saving = Edits().saving;
    return saving.mark != 0 && DocumentMark(saving.path) == saving.mark;
}

SceneContent LeftJournal::Restored(SceneContent base, std::vector<std::string>& problems) const
{
    Restoring(m_content, fs::path(m_name).parent_path().string(), base, problems).Run();
    return base;
}

void LeftJournal::Discard()
{
    std::error_code ignored;
    for (const char* suffix : {kJournalPictureSuffix, kJournalSuffix}) {
        fs::remove(m_name + suffix, ignored);
    }
}

LeftJournals FindLeftJournals(const std::string& stateFolder)
{
    LeftJournals journals;
    std::set<std::string> names;
    std::error_code error;
    for (fs::directory_iterator file(RecoveryFolder(stateFolder), error), end;
         !error && file != end; file.increment(error)) {
        const std::string suffix = file->path().extension().string();
        if (suffix == kJournalSuffix || suffix == kJournalLockSuffix ||
            suffix == kJournalPictureSuffix) {
            names.insert(fs::path(file->path()).replace_extension().string());
        }
    }
    for (const std::string& name : names) {
        LookAt(name, journals);
    }
    std::ranges::sort(journals.found, [](const LeftJournal& one, const LeftJournal& other) {
        return one.Edits().made > other.Edits().made;
    });
    return journals;
}

}  // namespace studio
