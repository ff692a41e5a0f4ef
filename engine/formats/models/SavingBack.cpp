#include "SavingBack.h"

#include "DocumentFile.h"
#include "ExportedProperties.h"
#include "FileClaim.h"
#include "FileSet.h"
#include "Formats.h"
#include "LastingPicture.h"
#include "QtRegularFile.h"
#include <CorvexMaterial/Schema.h>

#include <QFileInfo>

#include <algorithm>
#include <set>

namespace studio {
namespace {

void RequireAsRead(const MaterialSource& source)
{
    for (const FileMark& file : source.files) {
        if (CorvexMaterial::FileIdentity(file.path) != file.identity) {
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

bool HoldTheSame(const std::string& one, const std::string& other)
{
    QFile first(QString::fromStdString(one));
    QFile second(QString::fromStdString(other));
    return first.size() == second.size() &&
           CorvexMaterial::OpenRegular(first, CorvexMaterial::kMostPictureFileBytes).empty() &&
           CorvexMaterial::OpenRegular(second, CorvexMaterial::kMostPictureFileBytes).empty() &&
           first.readAll() == second.readAll();
}

/// An image that is a copy of the one that was read, in a document for one, goes by that one's
/// name.
CorvexDB::udtMaterial WithImagesAsRead(CorvexDB::udtMaterial material,
                                       const CorvexDB::udtMaterial& asRead)
{
    for (const CorvexMaterial::Attribute layer : CorvexMaterial::kTextureFiles) {
        const auto& path = CorvexMaterial::RowOf(layer).path;
        const auto now = std::get<std::string>(path.get(material));
        const auto was = std::get<std::string>(path.get(asRead));
        if (now != was && !now.empty() && !was.empty() && HoldTheSame(now, was)) {
            path.set(material, was);
        }
    }
    return material;
}

/// The shapes that wore one material, by what they wear now. The first is what that material is
/// from now on: what it was where any still wears it, else what most wear.
class FormerWearers {
public:
    void Add(std::size_t shape, const AppliedMaterial& applied, const NamedMaterial& asRead)
    {
        const std::string& name = applied.identity ? applied.identity->name : asRead.name;
        auto known = std::ranges::find_if(m_groups, [&](const Group& group) {
            return group.now.name == name && group.gathered == applied.gathered;
        });
        if (known == m_groups.end()) {
            const NamedMaterial now{name,
                                    WithImagesAsRead(applied.gathered->material, asRead.material)};
            known = std::ranges::find_if(m_groups, [&](const Group& group) {
                return group.now.name == name && group.now.material == now.material;
            });
            if (known == m_groups.end()) {
                known = m_groups.insert(known, {now, applied.gathered, {}});
            }
        }
        known->shapes.push_back(shape);
    }

    /// Later groups go into `left`.
    void Settle(std::size_t number, DressedShapes& now, std::vector<FormerWearers>& left)
    {
        if (m_groups.empty()) {
            return;
        }
        NamedMaterial& settled = now.materials[number];
        const auto first = std::ranges::max_element(m_groups, {}, [&](const Group& group) {
            return std::pair(group.now.material == settled.material, group.shapes.size());
        });
        std::iter_swap(m_groups.begin(), first);
        settled = m_groups.front().now;
        m_groups.erase(m_groups.begin());
        left.push_back(std::move(*this));
    }

    void AddTo(DressedShapes& now) const
    {
        for (const Group& group : m_groups) {
            const auto known = std::ranges::find_if(now.materials, [&](const auto& named) {
                return named.name == group.now.name && named.material == group.now.material;
            });
            const auto number = static_cast<std::size_t>(known - now.materials.begin());
            if (known == now.materials.end()) {
                now.materials.push_back(group.now);
            }
            for (const std::size_t shape : group.shapes) {
                now.ofShape[shape] = number;
            }
        }
    }

private:
    struct Group {
        NamedMaterial now;
        std::shared_ptr<const CorvexSG::GatheredMaterial> gathered;
        std::vector<std::size_t> shapes;
    };
    std::vector<Group> m_groups;
};

/// A source whose vertices have colours, and what it is to say: a colour that nobody changed stays
/// as the file has it, another is what becomes the shown one with the vertices that wear it.
class UntintedSource {
public:
    UntintedSource(const MaterialSource& source, const DressedShapes& now)
        : m_source(source), m_now(now)
    {
        const std::size_t own = source.said.size();
        std::vector<VertexColours> wearers(now.materials.size());
        std::vector<std::size_t> former(now.materials.size());
        for (std::size_t shape = 0; shape < now.ofShape.size(); ++shape) {
            wearers[now.ofShape[shape]].Add(source.shapes[shape].colours);
            former[now.ofShape[shape]] = source.asRead.ofShape[shape];
        }
        for (std::size_t i = 0; i < own; ++i) {
            m_source.asRead.materials[i].material.Color = source.said[i].colour;
            former[i] = i;
        }
        for (std::size_t i = 0; own > 0 && i < now.materials.size(); ++i) {
            const CorvexMaterial::Rgb vertices = wearers[i].Average();
            const CorvexMaterial::Colour shown = now.materials[i].material.Color;
            SaidColour said = source.said[former[i]];
            if (shown != source.asRead.materials[former[i]].material.Color) {
                said.colour = said.For(shown, vertices);
            }
            m_now.materials[i].material.Color = said.colour;
            if (wearers[i].Any() && said.With(vertices) != shown) {
                m_missed.insert(now.materials[i].name);
            }
        }
    }

    [[nodiscard]] SourcePatch Patch(const QByteArray& bytes, PatchFor purpose) const
    {
        SourcePatch patch = FormatOf(m_source.path)->patch(m_source, m_now, bytes, purpose);
        const std::string color = CorvexMaterial::RowOf(Attribute::Color).label;
        Report report;
        for (const ReportRow& row : patch.report.Rows()) {
            if (row.property != color || !m_missed.contains(row.material)) {
                report.Add(row);
            }
        }
        for (const std::string& material : m_missed) {
            MaterialNotes(report, material).Approximated(color, kVerticesTint);
        }
        patch.report = std::move(report);
        return patch;
    }

private:
    MaterialSource m_source;
    DressedShapes m_now;
    std::set<std::string> m_missed;  ///< materials whose colour cannot be said
};

DressedShapes WithLastingPictures(DressedShapes now, const std::string& folder,
                                  CorvexMaterial::FileSet& files)
{
    for (NamedMaterial& named : now.materials) {
        std::string& primary = named.material.Textures.primary;
        primary = WithLastingPicture(primary, folder, &files);
    }
    return now;
}

}  // namespace

bool TakesMaterialsBack(const std::string& path)
{
    const Format* format = FormatOf(path);
    return format != nullptr && format->patch != nullptr;
}

MaterialSource SourceOf(const std::string& path, const ImportedModel& model)
{
    MaterialSource source{
        path, {{path, CorvexMaterial::FileIdentity(path)}}, {model.materials, {}}};
    for (const std::string& file : model.files) {
        if (std::string identity = CorvexMaterial::FileIdentity(file); !identity.empty()) {
            source.files.push_back({file, std::move(identity)});
        }
    }
    for (const ImportedShape& shape : model.shapes) {
        const ImportedMesh& mesh = model.meshes[shape.mesh];
        source.asRead.ofShape.push_back(mesh.material);
        source.shapes.push_back({shape.name, mesh.colours, shape.sourceNode, mesh.sourcePrimitive});
    }
    source.said = model.said;
    return source;
}

bool AreOf(const MaterialSource& source, const StudioScene::Shapes& shapes)
{
    return std::ranges::equal(source.shapes, shapes, {}, &SourceShape::name,
                              [](const auto& shape) { return shape->Name(); });
}

DressedShapes DressedNow(const MaterialSource& source, const StudioScene::Shapes& shapes)
{
    DressedShapes now = source.asRead;
    std::vector<FormerWearers> wearers(now.materials.size());
    for (std::size_t shape = 0; shape < now.ofShape.size(); ++shape) {
        const std::size_t number = now.ofShape[shape];
        wearers[number].Add(shape, shapes.at(shape)->Applied(), source.asRead.materials[number]);
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
    SourcePatch patch = UntintedSource(source, now).Patch(file.Bytes(), purpose);
    RequireWritable(patch.files);
    return patch;
}

std::vector<std::string> SaveBack(const MaterialSource& source, const DressedShapes& now,
                                  const std::stop_token& stop)
{
    CorvexMaterial::FileSet files(stop);
    const SourcePatch patch = PatchOf(
        source, WithLastingPictures(now, FolderOfDocument(source.path), files), PatchFor::Writing);
    std::set<std::string> others;
    for (const FileMark& file : source.files) {
        others.insert(file.path);
    }
    for (const PatchedFile& file : patch.files) {
        files.Add(file.path).Write(file.bytes);
        others.insert(file.path);
    }
    RequireAsRead(source);
    files.Finish();
    others.erase(source.path);
    return {others.begin(), others.end()};
}

}  // namespace studio
