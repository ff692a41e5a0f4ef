#include "tests/studio_raytrace/RibFacts.h"

#include <algorithm>

namespace StudioRaytraceTest {
namespace {

/// A parameter list begins at this argument; -1 for a request that has none.
struct KnownRequest {
    std::string_view name;
    int parameters = -1;
    bool onlyBeforeWorld = false;
    bool needed = false;
};
constexpr KnownRequest kRequests[] = {
    {"version", -1, true, true},
    {"Display", 3, true, true},
    {"Format", -1, true, true},
    {"Projection", 1, true, true},
    {"PixelSamples", -1, true, true},
    {"Exposure", -1, true},
    {"Option", 1, true},
    {"WorldBegin"},
    {"WorldEnd"},
    {"AttributeBegin"},
    {"AttributeEnd"},
    {"Attribute", 1},
    {"Scale"},
    {"Translate"},
    {"ConcatTransform"},
    {"LightSource", 2},
    {"Sides"},
    {"Color"},
    {"Opacity"},
    {"Surface", 1},
    {"Displacement", 1},
    {"PointsPolygons", 2},
    {"Polygon", 0},
};

struct KnownShader {
    std::string_view name;
    std::string_view parameters;  ///< of the standard, each between blanks
};
constexpr KnownShader kShaders[] = {
    {"matte", " Ka Kd "},
    {"metal", " Ka Ks roughness "},
    {"shinymetal", " Ka Ks roughness Kr texturename "},
    {"plastic", " Ka Kd Ks roughness specularcolor "},
    {"paintedplastic", " Ka Kd Ks roughness specularcolor texturename "},
    {"ambientlight", " intensity lightcolor "},
    {"distantlight", " intensity lightcolor from to "},
};

template <typename Rows>
auto RowOf(const Rows& rows, std::string_view name)
{
    return std::find_if(std::begin(rows), std::end(rows),
                        [&](const auto& row) { return row.name == name; });
}

std::string LastWord(const std::string& declaration)
{
    return declaration.substr(declaration.rfind(' ') + 1);
}

class Facts {
public:
    explicit Facts(RibFile& file) : m_file(file)
    {
        for (const RibRequest& request : file.requests) {
            CheckRequest(request);
            m_request = nullptr;
        }
        Check(m_blocks.empty(), "a block is left open");
        for (const KnownRequest& known : kRequests) {
            Check(!known.needed || file.Find(known.name), std::string(known.name) + " is missing");
        }
    }

private:
    void CheckRequest(const RibRequest& request)
    {
        m_request = &request;
        const auto known = RowOf(kRequests, request.name);
        if (known == std::end(kRequests)) {
            Check(false, "an unknown request");
            return;
        }
        Check(m_blocks.empty() || !known->onlyBeforeWorld, "too late");
        CheckParameters(known->parameters);
        CheckBlock(request.name);
        CheckShader();
        CheckNumbers();
        CheckPolygons();
    }

    void CheckParameters(int first)
    {
        const auto& arguments = m_request->arguments;
        for (std::size_t i = first < 0 ? arguments.size() : static_cast<std::size_t>(first);
             i < arguments.size(); i += 2) {
            const std::string declaration = m_request->Text(i);
            const bool typed = declaration.find(' ') != std::string::npos || declaration == "P" ||
                               declaration == "N" || m_request->name.starts_with("Points");
            Check(typed, "no type: " + declaration);
            Check(i + 1 < arguments.size() && arguments[i + 1].isArray, "no value: " + declaration);
        }
    }

    void CheckBlock(const std::string& name)
    {
        if (name.ends_with("Begin")) {
            m_blocks.push_back(name.substr(0, name.size() - 5));
            m_bounded = false;
        } else if (name.ends_with("End")) {
            Check(!m_blocks.empty() && m_blocks.back() == name.substr(0, name.size() - 3),
                  "ends what did not begin");
            m_blocks.resize(m_blocks.size() - (m_blocks.empty() ? 0 : 1));
        }
    }

    void CheckShader()
    {
        if (m_request->name == "Surface" || m_request->name == "LightSource") {
            const auto shader = RowOf(kShaders, m_request->Text());
            Check(shader != std::end(kShaders), "an unknown shader");
            for (std::size_t i = 1; i < m_request->arguments.size(); ++i) {
                const std::string word = LastWord(m_request->Text(i));
                Check(m_request->arguments[i].isArray || word.empty() ||
                          (shader != std::end(kShaders) &&
                           shader->parameters.find(' ' + word + ' ') != std::string_view::npos),
                      "an unknown parameter: " + word);
            }
        }
        if (m_request->name == "Attribute" || m_request->name == "Option") {
            m_bounded = m_bounded || m_request->Text() == "displacementbound";
            m_searched = m_searched || m_request->Text() == "searchpath";
        }
        Check(m_request->name != "Displacement" || m_bounded, "no bound");
        if (const RibArgument* image = m_request->Parameter("texturename")) {
            CheckPath(image->strings.at(0));
        }
        if (m_request->name == "Display") {
            CheckPath(m_request->Text());
        }
    }

    void CheckPath(const std::string& path)
    {
        Check(!path.empty() && (path.front() != '/' || m_searched), "not found from here: " + path);
    }

    void CheckNumbers()
    {
        const std::vector<float> numbers = m_request->Numbers();
        const auto has = [&](std::string_view name, std::size_t count, float least, float most) {
            Check(m_request->name != name ||
                      (numbers.size() == count &&
                       std::all_of(numbers.begin(), numbers.end(),
                                   [&](float n) { return n >= least && n <= most; })),
                  "wrong numbers");
        };
        has("version", 1, 3.03F, 3.03F);
        has("Format", 3, 1.0F, 1.0e6F);
        has("PixelSamples", 2, 1.0F, 100.0F);
        has("Sides", 1, 1.0F, 2.0F);
        has("Color", 3, 0.0F, 1.0F);
        has("Opacity", 3, 0.0F, 1.0F);
        if (m_request->name == "Scale" && m_blocks.empty()) {
            m_leftHanded = numbers.size() == 3 && numbers[2] < 0.0F;
        }
        Check(m_request->name != "WorldBegin" || m_leftHanded, "z comes out of the screen");
    }

    void CheckPolygons()
    {
        if (m_request->name != "PointsPolygons") {
            return;
        }
        const auto numbers = [&](const RibArgument* list) {
            return list ? list->numbers : std::vector<float>();
        };
        const auto& lists = m_request->arguments;
        const std::vector<float> counts = numbers(lists.empty() ? nullptr : &lists[0]);
        const std::vector<float> corners = numbers(lists.size() < 2 ? nullptr : &lists[1]);
        const std::size_t points = numbers(m_request->Parameter("P")).size();
        float sum = 0.0F;
        for (const float count : counts) {
            Check(count >= 3.0F, "fewer than three corners");
            sum += count;
        }
        Check(static_cast<std::size_t>(sum) == corners.size(), "corners do not add up");
        Check(std::all_of(
                  corners.begin(), corners.end(),
                  [&](float c) { return c >= 0.0F && 3.0F * c < static_cast<float>(points); }),
              "a corner without a point");
        Check(points > 0 && numbers(m_request->Parameter("N")).size() == points, "not one N a P");
        const auto places = std::find_if(lists.begin(), lists.end(), [](const RibArgument& list) {
            return list.strings == std::vector<std::string>{"facevarying float[2] st"};
        });
        Check(places != lists.end() && std::next(places)->numbers.size() == 2 * corners.size(),
              "not one st a corner");
    }

    void Check(bool fine, const std::string& otherwise)
    {
        if (!fine) {
            m_file.faults.push_back((m_request ? m_request->name + ": " : "") + otherwise);
        }
    }

    RibFile& m_file;
    const RibRequest* m_request = nullptr;
    std::vector<std::string> m_blocks;
    bool m_bounded = false;
    bool m_searched = false;
    bool m_leftHanded = false;
};

}  // namespace

void CheckFacts(RibFile& file)
{
    const Facts facts(file);
}

}  // namespace StudioRaytraceTest
