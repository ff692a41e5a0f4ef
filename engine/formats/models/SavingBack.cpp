#include "SavingBack.h"

#include "DocumentFile.h"
#include "FileWriting.h"
#include "Formats.h"
#include "LastingPicture.h"

#include <QFileInfo>

#include <algorithm>

namespace studio {
namespace {

void RequireAsRead(const MaterialSource& source)
{
    for (const FileMark& file : source.files) {
        if (!file.StillHolds()) {
            RefuseChanged(file.path);
        }
    }
}

void RequireWritable(const std::vector<PatchedFile>& files)
{
    for (const PatchedFile& file : files) {
        const bool isNew = !QFileInfo::exists(QString::fromStdString(file.path));
        const std::string written = isNew ? FolderOfDocument(file.path) : file.path;
        if (const std::error_code refusal = CorvexMaterial::WriteRefusal(written)) {
            RefuseDocument(file.path, refusal.message());
        }
    }
}

/// The shapes that wore one material, by what they wear now. The first is what that material is
/// from now on: what it was where any still wears it, else what most wear.
class FormerWearers {
public:
    void Add(std::size_t shape, const AppliedMaterial& applied, const std::string& nameAsRead)
    {
        const std::string& name = applied.identity ? applied.identity->name : nameAsRead;
        const auto known = std::ranges::find_if(m_groups, [&](const Group& group) {
            return group.name == name && (group.gathered == applied.gathered ||
                                          group.gathered->material == applied.gathered->material);
        });
        if (known == m_groups.end()) {
            m_groups.push_back({name, applied.gathered, {shape}});
        } else {
            known->shapes.push_back(shape);
        }
    }

    /// Later groups go into `left`.
    void Settle(std::size_t number, DressedShapes& now, std::vector<FormerWearers>& left)
    {
        if (m_groups.empty()) {
            return;
        }
        NamedMaterial& settled = now.materials[number];
        const auto first = std::ranges::max_element(m_groups, {}, [&](const Group& group) {
            return std::pair(group.gathered->material == settled.material, group.shapes.size());
        });
        std::iter_swap(m_groups.begin(), first);
        settled = {m_groups.front().name, m_groups.front().gathered->material};
        m_groups.erase(m_groups.begin());
        left.push_back(std::move(*this));
    }

    void AddTo(DressedShapes& now) const
    {
        for (const Group& group : m_groups) {
            const auto known = std::ranges::find_if(now.materials, [&](const auto& named) {
                return named.name == group.name && named.material == group.gathered->material;
            });
            const auto number = static_cast<std::size_t>(known - now.materials.begin());
            if (known == now.materials.end()) {
                now.materials.push_back({group.name, group.gathered->material});
            }
            for (const std::size_t shape : group.shapes) {
                now.ofShape[shape] = number;
            }
        }
    }

private:
    struct Group {
        std::string name;
        std::shared_ptr<const CorvexSG::GatheredMaterial> gathered;
        std::vector<std::size_t> shapes;
    };
    std::vector<Group> m_groups;
};

/// In the order in which the source is read again.
DressedShapes InSourceOrder(const DressedShapes& now, const SourcePatch& patch)
{
    std::vector<std::size_t> order(now.materials.size());
    std::ranges::generate(order, [next = std::size_t{0}]() mutable { return next++; });
    const auto place = [&patch](std::size_t i) {
        return patch.numbers[i].value_or(patch.numbers.size());
    };
    std::ranges::stable_sort(order, {}, place);
    DressedShapes result;
    std::vector<std::size_t> numbers(order.size());
    for (const std::size_t i : order) {
        numbers[i] = result.materials.size();
        result.materials.push_back(now.materials[i]);
    }
    for (const std::size_t material : now.ofShape) {
        result.ofShape.push_back(numbers[material]);
    }
    return result;
}

DressedShapes WithLastingPictures(DressedShapes now, const std::string& folder)
{
    for (NamedMaterial& named : now.materials) {
        std::string& primary = named.material.Textures.primary;
        primary = WithLastingPicture(primary, folder);
    }
    return now;
}

}  // namespace

std::optional<MaterialSource> SourceOf(const std::string& path, const ImportedModel& model)
{
    const Format* format = FormatOf(path);
    if (format == nullptr || format->patch == nullptr) {
        return std::nullopt;
    }
    MaterialSource source{path, {MarkOf(path)}, {model.materials, {}}};
    for (const std::string& library : model.libraries) {
        source.files.push_back(MarkOf(library));
    }
    for (const ImportedShape& shape : model.shapes) {
        const ImportedMesh& mesh = model.meshes[shape.mesh];
        source.asRead.ofShape.push_back(mesh.material);
        source.places.push_back({shape.sourceNode, mesh.sourcePrimitive});
    }
    return source;
}

DressedShapes DressedNow(const MaterialSource& source, const StudioScene::Shapes& shapes)
{
    DressedShapes now = source.asRead;
    std::vector<FormerWearers> wearers(now.materials.size());
    for (std::size_t shape = 0; shape < now.ofShape.size(); ++shape) {
        const std::size_t number = now.ofShape[shape];
        wearers[number].Add(shape, shapes.at(shape)->Applied(),
                            source.asRead.materials[number].name);
    }
    std::vector<FormerWearers> left;
    for (std::size_t number = 0; number < wearers.size(); ++number) {
        wearers[number].Settle(number, now, left);
    }
    for (const FormerWearers& others : left) {
        others.AddTo(now);
    }
    return now;
}

SourcePatch PatchOf(const MaterialSource& source, const DressedShapes& now, PatchFor purpose)
{
    RequireAsRead(source);
    const ModelFile file(source.path);
    if (!file.Obstacle().empty()) {
        RefuseDocument(source.path, file.Obstacle());
    }
    SourcePatch patch = FormatOf(source.path)->patch(source, now, file.Bytes(), purpose);
    RequireWritable(patch.files);
    return patch;
}

MaterialSource SaveBack(const MaterialSource& source, const DressedShapes& now)
{
    const SourcePatch patch =
        PatchOf(source, WithLastingPictures(now, FolderOfDocument(source.path)), PatchFor::Writing);
    RequireAsRead(source);
    for (const PatchedFile& file : patch.files) {
        CorvexMaterial::WriteFile(file.path, file.bytes);
    }
    MaterialSource saved = source;
    for (FileMark& file : saved.files) {
        file = MarkOf(file.path);
    }
    for (const PatchedFile& file : patch.files) {
        if (std::ranges::find(saved.files, file.path, &FileMark::path) == saved.files.end()) {
            saved.files.push_back(MarkOf(file.path));
        }
    }
    saved.asRead = InSourceOrder(now, patch);
    return saved;
}

}  // namespace studio
