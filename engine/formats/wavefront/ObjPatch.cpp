#include "ObjPatch.h"

#include "DocumentFile.h"
#include "MtlMaterials.h"
#include "MtlPatch.h"
#include "ObjFile.h"
#include "ShapeNames.h"
#include "UniqueNames.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>
#include <QStringEncoder>

#include <map>

namespace studio {
namespace {

/// A library that is changed as UTF-8 and keeps its encoding.
class MtlLibrary {
public:
    /// One that is not there is begun.
    explicit MtlLibrary(const std::string& path) : m_path(path)
    {
        if (!QFileInfo::exists(QString::fromStdString(path))) {
            return;
        }
        m_bytes = ReadDocument(path);
        QStringDecoder utf8(QStringDecoder::Utf8);
        static_cast<void>(QString(utf8(m_bytes)));
        m_isLatin = utf8.hasError();
        m_text = m_isLatin ? QString::fromLatin1(m_bytes).toStdString() : m_bytes.toStdString();
        m_materials = ParseMtl(m_text, path);
    }

    [[nodiscard]] const std::vector<MtlMaterial>& Materials() const { return m_materials; }
    [[nodiscard]] std::string BlockOf(std::size_t index) const
    {
        return m_text.substr(Begin(index), Begin(index + 1) - Begin(index));
    }
    void SetBlock(std::size_t index, const std::string& block) { m_blocks[index] = block; }
    void Append(const std::string& name, const std::vector<MtlLine>& lines)
    {
        const std::size_t first = m_text.find('\n');
        const bool isDos = first != std::string::npos && first > 0 && m_text[first - 1] == '\r';
        const std::string lineEnd = isDos ? "\r\n" : "\n";
        const std::string block = MtlBlock(name, lines, lineEnd);
        if (m_added.empty()) {
            m_added = m_text.empty() || m_text.ends_with('\n') ? "" : lineEnd;
        }
        m_added += m_text.empty() && m_added.empty() ? block.substr(lineEnd.size()) : block;
    }

    [[nodiscard]] std::optional<PatchedFile> Changed() const
    {
        std::string text = m_text.substr(0, Begin(0));
        for (std::size_t index = 0; index < m_materials.size(); ++index) {
            const auto changed = m_blocks.find(index);
            text += changed == m_blocks.end() ? BlockOf(index) : changed->second;
        }
        text += m_added;
        if (text == m_text) {
            return std::nullopt;
        }
        if (!m_isLatin) {
            return PatchedFile{m_path, QByteArray::fromStdString(text)};
        }
        QStringEncoder latin(QStringEncoder::Latin1);
        const QByteArray bytes = latin(QString::fromStdString(text));
        if (latin.hasError()) {
            RefuseDocument(m_path, QCoreApplication::translate(
                                       "Interchange", "a name has letters that its encoding cannot "
                                                      "hold.")
                                       .toStdString());
        }
        return PatchedFile{m_path, bytes};
    }

private:
    [[nodiscard]] std::size_t Begin(std::size_t index) const
    {
        return index < m_materials.size() ? m_materials[index].statements.front().begin
                                          : m_text.size();
    }

    std::string m_path;
    QByteArray m_bytes;
    bool m_isLatin = false;
    std::string m_text;
    std::vector<MtlMaterial> m_materials;
    std::map<std::size_t, std::string> m_blocks;  ///< those that change
    std::string m_added;
};

/// A line that names a material, with another in its place.
std::string Renamed(std::string_view line, const std::string& from, const std::string& to)
{
    const std::size_t name = from.empty() ? std::string_view::npos : line.find(from, 7);
    const std::size_t end = line.find_last_not_of("\r\n") + 1;
    if (name == std::string_view::npos) {
        return "usemtl " + to + std::string(line.substr(end));
    }
    return std::string(line.substr(0, name)) + to + std::string(line.substr(name + from.size()));
}

class ObjPatching {
public:
    ObjPatching(const MaterialSource& source, const DressedShapes& now, const QByteArray& bytes)
        : m_source(source), m_now(now), m_bytes(bytes), m_folder(FolderOfDocument(source.path))
    {
        for (std::size_t file = 1; file < source.files.size(); ++file) {
            m_libraries.emplace_back(source.files[file].path);
            for (const MtlMaterial& material : m_libraries.back().Materials()) {
                static_cast<void>(m_names.Take(material.name));
                m_written.push_back(material.name);
            }
        }
        m_numbers.resize(now.materials.size());
        const QFileInfo model(QString::fromStdString(source.path));
        m_newLibrary = model.completeBaseName() + QStringLiteral(".mtl");
        if (m_libraries.empty() && !model.dir().exists(m_newLibrary)) {
            m_libraries.emplace_back(m_folder + '/' + m_newLibrary.toStdString());
        }
    }

    SourcePatch Make()
    {
        RequireOwnMaterials(m_source, m_written.size());
        PatchLibraries();
        for (std::size_t i = m_written.size(); i < m_now.materials.size(); ++i) {
            const bool isPlain = i < m_source.asRead.materials.size();
            if (!isPlain || m_now.materials[i].material != m_source.asRead.materials[i].material) {
                AddMaterial(i);
            }
        }
        for (const MtlLibrary& library : m_libraries) {
            if (auto changed = library.Changed()) {
                m_patch.files.push_back(std::move(*changed));
            }
        }
        DressParts();
        return std::move(m_patch);
    }

private:
    void PatchLibraries()
    {
        std::size_t number = 0;
        for (MtlLibrary& library : m_libraries) {
            for (std::size_t index = 0; index < library.Materials().size(); ++index) {
                PatchMaterial(library, index, number++);
            }
        }
    }

    void PatchMaterial(MtlLibrary& library, std::size_t index, std::size_t number)
    {
        m_numbers[number] = number;
        const NamedMaterial& was = m_source.asRead.materials[number];
        const NamedMaterial& now = m_now.materials[number];
        if (now.name != was.name) {
            MaterialNotes(m_patch.report, was.name)
                .Dropped("name",
                         QT_TRANSLATE_NOOP("Interchange", "other models may know it by its name"));
        }
        if (now.material == was.material) {
            return;
        }
        MtlPatch patch(library.BlockOf(index), m_folder, m_alpha);
        patch.Apply(was, now, m_patch.report);
        library.SetBlock(index, patch.Text());
    }

    void AddMaterial(std::size_t i)
    {
        const NamedMaterial& named = m_now.materials[i];
        if (m_libraries.empty()) {
            MaterialNotes(m_patch.report, named.name)
                .Dropped("material",
                         QT_TRANSLATE_NOOP("Interchange",
                                           "the model names no library, and a file has the "
                                           "name that one would have"));
            return;
        }
        ExportNotes notes(named, MtlTable(), Wearers::Samples);
        const std::vector<MtlLine> lines = MtlLinesOf(named, m_folder, m_alpha, notes);
        notes.AddChangesTo(m_patch.report, {});
        const std::string name = m_names.Take(ReadableName(named.name, "Material"));
        m_libraries.back().Append(name, lines);
        m_numbers[i] = m_written.size();
        m_added[i] = name;
        m_written.push_back(name);
    }

    /// The name that a part's faces are to be under; nothing when that stays as it is.
    [[nodiscard]] std::optional<std::string> NewNameOf(std::size_t part) const
    {
        const std::size_t material = m_now.ofShape[part];
        const auto number = m_numbers[material];
        const bool stays = material == m_source.asRead.ofShape[part] && !m_added.contains(material);
        return stays || !number ? std::nullopt : std::optional(m_written[*number]);
    }

    void DressParts()
    {
        bool changes = false;
        for (std::size_t part = 0; part < m_now.ofShape.size() && !changes; ++part) {
            changes = NewNameOf(part).has_value();
        }
        if (!changes) {
            return;
        }
        const std::string_view text(m_bytes.constData(), static_cast<std::size_t>(m_bytes.size()));
        const ObjFile file = ParseObj(text);
        if (file.parts.size() != m_now.ofShape.size()) {
            RefuseChanged(m_source.path);
        }
        m_patch.files.push_back({m_source.path, QByteArray::fromStdString(Dressed(text, file))});
    }

    /// Each run of faces gets a statement before it, where the one in force is not its own.
    [[nodiscard]] std::string Dressed(std::string_view text, const ObjFile& file) const
    {
        const bool isDos = text.find("\r\n") != std::string_view::npos;
        std::string dressed;
        if (m_source.files.size() == 1) {
            dressed = "mtllib " + m_newLibrary.toStdString() + (isDos ? "\r\n" : "\n");
        }
        std::string inForce;
        std::size_t copied = 0;
        auto use = file.uses.begin();
        const auto copyTo = [&](std::size_t place) {
            dressed += text.substr(copied, place - copied);
            copied = place;
        };
        for (const ObjRun& run : file.runs) {
            const std::string wanted = NewNameOf(run.part).value_or(file.parts[run.part].material);
            bool isNamed = false;
            for (; use != file.uses.end() && use->begin < run.begin; ++use) {
                isNamed = true;
                copyTo(use->begin);
                inForce = file.parts[run.part].material;
                const auto next = std::next(use);
                const bool isItsOwn = next == file.uses.end() || next->begin > run.begin;
                if (isItsOwn && inForce != wanted) {
                    dressed +=
                        Renamed(text.substr(use->begin, use->end - use->begin), inForce, wanted);
                    copied = use->end;
                    inForce = wanted;
                }
            }
            if (!isNamed && inForce != wanted) {
                copyTo(run.begin);
                dressed += "usemtl " + wanted + (isDos ? "\r\n" : "\n");
                inForce = wanted;
            }
        }
        copyTo(text.size());
        return dressed;
    }

    const MaterialSource& m_source;
    const DressedShapes& m_now;
    const QByteArray& m_bytes;
    const std::string m_folder;
    std::vector<MtlLibrary> m_libraries;
    QString m_newLibrary;  ///< its name if the model has none yet
    UniqueNames m_names;
    AlphaChannels m_alpha;
    std::vector<std::string> m_written;  ///< names in the libraries, by number
    std::map<std::size_t, std::string> m_added;
    /// Of the materials in the source from now on; nothing for plain shapes'.
    std::vector<std::optional<std::size_t>> m_numbers;
    SourcePatch m_patch;
};

}  // namespace

SourcePatch PatchOfObj(const MaterialSource& source, const DressedShapes& now,
                       const QByteArray& bytes, PatchFor /*purpose*/)
{
    return ObjPatching(source, now, bytes).Make();
}

}  // namespace studio
