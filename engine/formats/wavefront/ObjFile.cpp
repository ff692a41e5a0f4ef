#include "ObjFile.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

namespace studio {
namespace {

constexpr std::string_view kObjBlanks = " \t\r\v\f";

bool IsBlank(char letter)
{
    return kObjBlanks.find(letter) != std::string_view::npos;
}

void SkipBlanks(std::string_view& rest)
{
    while (!rest.empty() && IsBlank(rest.front())) {
        rest.remove_prefix(1);
    }
}

/// Without the blanks around it.
std::string TextIn(std::string_view rest)
{
    SkipBlanks(rest);
    while (!rest.empty() && IsBlank(rest.back())) {
        rest.remove_suffix(1);
    }
    return std::string(rest);
}

/// The next number; 0 for a word that is none, as far as it is none.
std::optional<float> TakeFloat(std::string_view& rest)
{
    SkipBlanks(rest);
    if (rest.empty()) {
        return std::nullopt;
    }
    if (rest.front() == '+') {
        rest.remove_prefix(1);
    }
    float value = 0.0F;
    const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    rest.remove_prefix(static_cast<std::size_t>(read.ptr - rest.data()));
    while (!rest.empty() && !IsBlank(rest.front())) {
        rest.remove_prefix(1);
    }
    return value;
}

template <std::size_t count>
std::array<float, count> TakeFloats(std::string_view& rest)
{
    std::array<float, count> values{};
    for (float& value : values) {
        value = TakeFloat(rest).value_or(0.0F);
    }
    return values;
}

constexpr std::uint32_t kNone = ~std::uint32_t{0};

/// The next number of a corner, from 1 or, negative, back from the last of so many.
std::uint32_t TakeIndex(std::string_view& rest, std::size_t count)
{
    std::int64_t number = 0;
    const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    rest.remove_prefix(static_cast<std::size_t>(read.ptr - rest.data()));
    const std::int64_t index = number < 0 ? static_cast<std::int64_t>(count) + number : number - 1;
    return index >= 0 && index < static_cast<std::int64_t>(count)
               ? static_cast<std::uint32_t>(index)
               : kNone;
}

struct Corner {
    std::uint32_t position = kNone;
    std::uint32_t uv = kNone;
    std::uint32_t normal = kNone;

    bool operator==(const Corner&) const = default;
};

class ObjReading {
public:
    ObjFile Read(std::string_view text)
    {
        // Lines end as on any system.
        const char end = text.find('\n') == std::string_view::npos ? '\r' : '\n';
        const std::size_t all = text.size();
        while (!text.empty()) {
            m_lineBegin = all - text.size();
            const std::string_view line = NextLine(text, end);
            m_lineEnd = all - text.size();
            TakeStatement(line);
        }
        LeaveOutEmptyParts();
        return std::move(m_file);
    }

private:
    /// A backslash at the end joins a line with the next.
    std::string_view NextLine(std::string_view& text, char end)
    {
        m_joined.clear();
        while (true) {
            const std::size_t length = std::min(text.find(end), text.size());
            std::string_view line = text.substr(0, length);
            text.remove_prefix(std::min(length + 1, text.size()));
            if (line.ends_with('\r')) {
                line.remove_suffix(1);
            }
            if (!line.ends_with('\\') || text.empty()) {
                return m_joined.empty() ? line : std::string_view(m_joined += line);
            }
            m_joined += line.substr(0, line.size() - 1);
            m_joined += ' ';
        }
    }

    void TakeStatement(std::string_view rest)
    {
        SkipBlanks(rest);
        std::size_t length = 0;
        while (length < rest.size() && !IsBlank(rest[length])) {
            ++length;
        }
        const std::string_view keyword = rest.substr(0, length);
        rest.remove_prefix(length);
        if (keyword == "v") {
            TakePosition(rest);
        } else if (keyword == "f") {
            TakeFace(rest);
        } else if (keyword == "vn") {
            m_normals.push_back(TakeFloats<3>(rest));
        } else if (keyword == "vt") {
            m_uvs.push_back(TakeFloats<2>(rest));
        } else {
            TakeName(keyword, rest);
        }
    }

    void TakeName(std::string_view keyword, std::string_view rest)
    {
        if (keyword == "usemtl") {
            m_material = TextIn(rest);
            m_part = nullptr;
            m_file.uses.push_back({m_lineBegin, m_lineEnd});
        } else if (keyword == "o" || keyword == "g") {
            m_group = TextIn(rest);
            m_partsOfGroup.clear();
            m_part = nullptr;
        } else if (keyword == "mtllib") {
            const std::string library = TextIn(rest);
            if (std::ranges::find(m_file.libraries, library) == m_file.libraries.end()) {
                m_file.libraries.push_back(library);
            }
        }
    }

    void TakePosition(std::string_view rest)
    {
        m_positions.push_back(TakeFloats<3>(rest));
        m_lastUse.push_back({});
        const auto red = TakeFloat(rest);
        const auto green = TakeFloat(rest);
        if (const auto blue = TakeFloat(rest); blue) {
            m_colours.resize(m_positions.size() - 1, kWhiteRgb);
            m_colours.push_back({*red, *green, *blue});
        }
    }

    void TakeFace(std::string_view rest)
    {
        m_face.clear();
        for (SkipBlanks(rest); !rest.empty(); SkipBlanks(rest)) {
            Corner corner;
            const std::size_t before = rest.size();
            corner.position = TakeIndex(rest, m_positions.size());
            if (rest.starts_with('/')) {
                rest.remove_prefix(1);
                corner.uv = TakeIndex(rest, m_uvs.size());
            }
            if (rest.starts_with('/')) {
                rest.remove_prefix(1);
                corner.normal = TakeIndex(rest, m_normals.size());
            }
            if (rest.size() == before || corner.position == kNone) {
                return;  // a face of corners that are none
            }
            m_face.push_back(corner);
        }
        AddFace();
    }

    void AddFace()
    {
        if (m_face.size() < 3) {
            return;
        }
        ObjPart& part = Part();
        m_corners.clear();
        m_polygon.clear();
        for (const Corner& corner : m_face) {
            const auto& [x, y, z] = m_positions[corner.position];
            m_polygon.emplace_back(x, y, z);
        }
        AppendTriangles(m_polygon, m_corners);
        for (const std::uint32_t corner : m_corners) {
            part.mesh.indices.push_back(VertexOf(part, m_face[corner]));
        }
    }

    ObjPart& Part()
    {
        if (m_part != nullptr) {
            return *m_part;
        }
        const auto [known, isNew] = m_partsOfGroup.try_emplace(m_material, m_file.parts.size());
        if (isNew) {
            const bool first = m_partsOfGroup.size() == 1;
            m_file.parts.push_back({first ? m_group : m_material, m_material, {}});
            m_cornersOfParts.emplace_back();
        }
        m_number = static_cast<std::uint32_t>(known->second);
        m_file.runs.push_back({known->second, m_lineBegin});
        m_part = &m_file.parts[known->second];
        return *m_part;
    }

    /// One vertex for all corners that are the same. Each position knows the last vertex that was
    /// made of it, and that the one before.
    std::uint32_t VertexOf(ObjPart& part, const Corner& corner)
    {
        auto& known = m_cornersOfParts[m_number];
        LastUse& last = m_lastUse[corner.position];
        if (last.part == m_number) {
            for (std::uint32_t at = last.vertex; at != kNone; at = known[at].before) {
                if (known[at].corner == corner) {
                    return at;
                }
            }
        }
        const auto made = static_cast<std::uint32_t>(part.mesh.vertices.size());
        known.push_back({corner, last.part == m_number ? last.vertex : kNone});
        last = {m_number, made};
        AddVertex(part, corner);
        return made;
    }

    void AddVertex(ObjPart& part, const Corner& corner)
    {
        Vertex vertex;
        vertex.position = m_positions[corner.position];
        if (corner.uv != kNone) {
            vertex.uv = m_uvs[corner.uv];
            part.mesh.hasCoordinates = true;
        }
        if (corner.normal != kNone) {
            vertex.normal = m_normals[corner.normal];
            part.mesh.hasNormals = true;
        }
        part.mesh.vertices.push_back(vertex);
        if (!m_colours.empty()) {
            part.mesh.colours.push_back(
                corner.position < m_colours.size() ? m_colours[corner.position] : kWhiteRgb);
        }
    }

    void LeaveOutEmptyParts()
    {
        std::vector<std::size_t> numbers;
        std::size_t next = 0;
        for (const ObjPart& part : m_file.parts) {
            numbers.push_back(next);
            next += part.mesh.indices.empty() ? 0 : 1;
        }
        std::erase_if(m_file.runs, [this](const ObjRun& run) {
            return m_file.parts[run.part].mesh.indices.empty();
        });
        for (ObjRun& run : m_file.runs) {
            run.part = numbers[run.part];
        }
        std::erase_if(m_file.parts, [](const ObjPart& part) { return part.mesh.indices.empty(); });
    }

    struct LastUse {
        std::uint32_t part = kNone;
        std::uint32_t vertex = kNone;
    };
    struct KnownCorner {
        Corner corner;
        std::uint32_t before = kNone;
    };

    ObjFile m_file;
    std::vector<std::array<float, 3>> m_positions;
    std::vector<std::array<float, 3>> m_normals;
    std::vector<std::array<float, 2>> m_uvs;
    std::vector<Rgb> m_colours;  ///< of the first positions
    std::vector<LastUse> m_lastUse;
    std::vector<std::vector<KnownCorner>> m_cornersOfParts;  ///< by vertex
    std::size_t m_lineBegin = 0;
    std::size_t m_lineEnd = 0;
    std::string m_group;
    std::string m_material;
    std::map<std::string, std::size_t> m_partsOfGroup;  ///< by material
    ObjPart* m_part = nullptr;
    std::uint32_t m_number = 0;
    // One face after the other, for each would take room of its own.
    std::string m_joined;
    std::vector<Corner> m_face;
    std::vector<QVector3D> m_polygon;
    std::vector<std::uint32_t> m_corners;
};

}  // namespace

ObjFile ParseObj(std::string_view text)
{
    return ObjReading().Read(text);
}

}  // namespace studio
