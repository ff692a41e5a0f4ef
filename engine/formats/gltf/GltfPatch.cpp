#include "GltfPatch.h"

#include "GltfExport.h"
#include "GltfMaterialPatch.h"
#include "GltfMaterials.h"
#include "GltfSurface.h"

#include <QCoreApplication>
#include <QtEndian>

#include <map>
#include <set>

namespace studio {
namespace {

/// What of a document may change.
constexpr std::array<std::string_view, 6> kSections{"materials",      "images", "textures",
                                                    "extensionsUsed", "meshes", "nodes"};

/// Of a text or a binary file.
QByteArray TextOf(const QByteArray& bytes)
{
    constexpr qsizetype kTextBegin = 20;
    constexpr qsizetype kTextSize = 12;
    if (!bytes.startsWith("glTF")) {
        return bytes;
    }
    return bytes.mid(kTextBegin, qFromLittleEndian<quint32>(bytes.constData() + kTextSize));
}

/// A file whose text has become another.
QByteArray WithText(const QByteArray& bytes, QByteArray text)
{
    constexpr qsizetype kTextBegin = 20;
    if (!bytes.startsWith("glTF")) {
        return text;
    }
    const QByteArray rest = bytes.sliced(kTextBegin + TextOf(bytes).size());
    while (text.endsWith(' ') || text.endsWith('\0')) {
        text.chop(1);
    }
    text.append((4 - text.size() % 4) % 4, ' ');
    QByteArray head = bytes.first(kTextBegin);
    const auto put = [&head](qsizetype at, qsizetype number) {
        qToLittleEndian(static_cast<quint32>(number), head.data() + at);
    };
    put(8, head.size() + text.size() + rest.size());
    put(12, text.size());
    return head + text + rest;
}

Json SectionsOf(std::string_view text)
{
    while (text.ends_with('\0')) {
        text.remove_suffix(1);
    }
    return Json::parse(text, [](int depth, Json::parse_event_t event, const Json& key) {
        return depth != 1 || event != Json::parse_event_t::key ||
               std::ranges::find(kSections, key.get_ref<const std::string&>()) != kSections.end();
    });
}

void CollectExtensions(const Json& object, std::set<std::string>& names)
{
    for (const auto& [key, value] : object.items()) {
        if (key == "extensions" && value.is_object()) {
            for (const auto& [name, content] : value.items()) {
                names.insert(name);
            }
        }
        if (value.is_structured()) {
            CollectExtensions(value, names);
        }
    }
}

class GltfPatching {
public:
    GltfPatching(const MaterialSource& source, const DressedShapes& now, const QByteArray& bytes,
                 PatchFor purpose)
        : m_source(source), m_now(now), m_file(bytes, source.path), m_bytes(bytes),
          m_text(TextOf(bytes)),
          m_was(SectionsOf({m_text.constData(), static_cast<std::size_t>(m_text.size())})),
          m_json(m_was),
          m_images(m_file.Folder(), static_cast<qsizetype>(Count("images")),
                   static_cast<qsizetype>(Count("textures")), purpose == PatchFor::Writing)
    {
        m_numbers.resize(now.materials.size());
    }

    SourcePatch Make()
    {
        if (m_file.Root()[u"meshes"].isObject() || m_file.Root()[u"materials"].isObject()) {
            RefuseDocument(m_source.path, QCoreApplication::translate(
                                              "Interchange", "materials cannot be written into the "
                                                             "format's first version.")
                                              .toStdString());
        }
        RequireOwnMaterials(m_source, Count("materials"));
        KnowTextures();
        for (std::size_t i = 0; i < Own(); ++i) {
            PatchMaterial(i);
            m_numbers[i] = i;
        }
        for (std::size_t i = Own(); i < m_now.materials.size(); ++i) {
            AddMaterial(i);
        }
        DressMeshes();
        AddLists();
        if (m_json != m_was) {
            const std::string text = SplicedJson(
                {m_text.constData(), static_cast<std::size_t>(m_text.size())}, m_was, m_json);
            m_patch.files.push_back(
                {m_source.path, WithText(m_bytes, QByteArray::fromStdString(text))});
        }
        return std::move(m_patch);
    }

private:
    [[nodiscard]] std::size_t Count(const char* list) const
    {
        return m_was.contains(list) && m_was[list].is_array() ? m_was[list].size() : 0;
    }
    /// How many of the materials are the document's own.
    [[nodiscard]] std::size_t Own() const
    {
        return std::min(Count("materials"), m_source.asRead.materials.size());
    }

    void KnowTextures()
    {
        for (std::size_t i = 0; i < Own(); ++i) {
            const std::string& file = m_source.asRead.materials[i].material.Textures.primary;
            const QJsonObject material = m_file.At("materials", static_cast<qint64>(i));
            const QJsonObject use = BaseTexture(material);
            if (!file.empty() && use[u"index"].isDouble()) {
                m_images.Know(file, use[u"index"].toInt());
            }
        }
    }

    void PatchMaterial(std::size_t i)
    {
        const NamedMaterial& was = m_source.asRead.materials[i];
        const NamedMaterial& now = m_now.materials[i];
        if (now.material == was.material && now.name == was.name) {
            return;
        }
        Json& material = m_json["materials"][i];
        GltfMaterialPatch(material, m_file, m_images).Apply(was, now, m_patch.report);
        CollectNewExtensions(material, m_was["materials"][i]);
    }

    void CollectNewExtensions(const Json& now, const Json& was)
    {
        std::set<std::string> before;
        CollectExtensions(was, before);
        std::set<std::string> after;
        CollectExtensions(now, after);
        std::ranges::set_difference(after, before,
                                    std::inserter(m_newExtensions, m_newExtensions.end()));
    }

    /// What the format gives to what names no material has no place in the document as long as it
    /// is as it was.
    void AddMaterial(std::size_t i)
    {
        const bool isPlain = i < m_source.asRead.materials.size();
        const NamedMaterial& now = m_now.materials[i];
        if (isPlain && now.material == m_source.asRead.materials[i].material) {
            return;
        }
        ExportNotes notes(now, GltfTable(), Wearers::Samples);
        const Json written = JsonOf(GltfMaterialOf(now, m_images, notes));
        Report unsaid;
        notes.AddChangesTo(m_patch.report,
                           SurfaceOfGltf({}, m_file, MaterialNotes(unsaid, "")).material);
        CollectNewExtensions(written, Json::object());
        m_numbers[i] = m_json.contains("materials") ? m_json["materials"].size() : 0;
        m_json["materials"].push_back(written);
    }

    /// Primitives of a mesh and the materials that they are to have.
    using Dress = std::map<std::size_t, std::size_t>;

    /// What changes, by node.
    [[nodiscard]] std::map<std::size_t, Dress> ChangedNodes()
    {
        std::map<std::size_t, Dress> nodes;
        for (std::size_t shape = 0; shape < m_now.ofShape.size(); ++shape) {
            const SourceShape& source = m_source.shapes[shape];
            const std::int32_t node = source.node;
            const std::size_t material = m_now.ofShape[shape];
            const bool changes = material != m_source.asRead.ofShape[shape] ||
                                 m_numbers[material] != NumberAsRead(material);
            if (changes && node < 0) {
                MaterialNotes(m_patch.report, m_now.materials[material].name)
                    .Dropped("shape", QT_TRANSLATE_NOOP("Interchange",
                                                        "the packed mesh cannot be given another "
                                                        "material"));
            } else if (node >= 0) {
                Dress& dress = nodes[static_cast<std::size_t>(node)];
                if (changes) {
                    dress[static_cast<std::size_t>(source.primitive)] = material;
                }
            }
        }
        return nodes;
    }

    /// Those that a node shows which does not change.
    [[nodiscard]] std::set<std::size_t>
    UnchangedMeshes(const std::map<std::size_t, Dress>& nodes) const
    {
        std::set<std::size_t> meshes;
        std::size_t number = 0;
        for (const Json& node : m_was["nodes"]) {
            const auto changed = nodes.find(number++);
            const bool changes = changed != nodes.end() && !changed->second.empty();
            if (!changes && node.contains("mesh")) {
                meshes.insert(node["mesh"].get<std::size_t>());
            }
        }
        return meshes;
    }

    /// A mesh has one dress for all nodes that show it; those that differ get a copy of it.
    void DressMeshes()
    {
        std::map<std::pair<std::size_t, Dress>, std::size_t> known;
        const std::map<std::size_t, Dress> nodes = ChangedNodes();
        std::set<std::size_t> taken = UnchangedMeshes(nodes);
        for (const auto& [node, dress] : nodes) {
            if (dress.empty()) {
                continue;
            }
            Json& mesh = m_json["nodes"].at(node)["mesh"];
            const auto number = mesh.get<std::size_t>();
            const auto [made, isNew] = known.try_emplace({number, dress}, number);
            if (isNew && taken.contains(number)) {
                made->second = m_json["meshes"].size();
                m_json["meshes"].push_back(Json(m_was["meshes"].at(number)));
            }
            if (isNew) {
                taken.insert(number);
                PutOn(dress, m_json["meshes"].at(made->second)["primitives"]);
            }
            if (made->second != number) {
                mesh = made->second;
            }
        }
    }

    void PutOn(const Dress& dress, Json& primitives) const
    {
        for (const auto& [primitive, material] : dress) {
            if (const auto number = m_numbers[material]) {
                primitives.at(primitive)["material"] = *number;
            } else {
                primitives.at(primitive).erase("material");
            }
        }
    }

    [[nodiscard]] std::optional<std::size_t> NumberAsRead(std::size_t material) const
    {
        return material < Own() ? std::optional(material) : std::nullopt;
    }

    void AddLists()
    {
        const auto append = [this](const char* list, const QJsonArray& items) {
            for (const QJsonValue item : items) {
                m_json[list].push_back(JsonOf(item.toObject()));
            }
        };
        append("images", m_images.NewImages());
        append("textures", m_images.NewTextures());
        for (const std::string& name : m_newExtensions) {
            Json& used = m_json["extensionsUsed"];
            if (std::ranges::find(used, Json(name)) == used.end()) {
                used.push_back(name);
            }
        }
    }

    const MaterialSource& m_source;
    const DressedShapes& m_now;
    GltfFile m_file;
    const QByteArray& m_bytes;
    QByteArray m_text;
    Json m_was;
    Json m_json;
    GltfImages m_images;
    std::set<std::string> m_newExtensions;
    /// Of the materials in the source from now on; nothing for plain shapes'.
    std::vector<std::optional<std::size_t>> m_numbers;
    SourcePatch m_patch;
};

}  // namespace

SourcePatch PatchOfGltf(const MaterialSource& source, const DressedShapes& now,
                        const QByteArray& bytes, PatchFor purpose)
{
    try {
        return GltfPatching(source, now, bytes, purpose).Make();
    } catch (const Json::exception&) {
        RefuseDocument(source.path,
                       QCoreApplication::translate(
                           "Interchange", "it is not as the format says, and nothing can be "
                                          "written into it.")
                           .toStdString());
    }
}

}  // namespace studio
