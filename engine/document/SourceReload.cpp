#include "SourceReload.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <map>

namespace studio {
namespace {

template <typename Item>
bool HaveSameBytes(const std::vector<Item>& one, const std::vector<Item>& other)
{
    return one.size() == other.size() &&
           (one.empty() || std::memcmp(one.data(), other.data(), one.size() * sizeof(Item)) == 0);
}

/// What a shape that was renamed is known by.
using Form = std::pair<std::size_t, std::array<float, 6>>;

Form FormOf(const ShapeState& shape)
{
    const QVector3D& least = shape.mesh->bounds.minimum;
    const QVector3D& most = shape.mesh->bounds.maximum;
    return {shape.mesh->indices.size(),
            {least.x(), least.y(), least.z(), most.x(), most.y(), most.z()}};
}

/// Shapes of the scene whose place nobody has taken, in their order.
template <typename Key>
class Waiting {
public:
    void Add(const Key& key, std::size_t place) { m_places[key].push_back(place); }

    std::optional<std::size_t> Take(const Key& key)
    {
        const auto found = m_places.find(key);
        if (found == m_places.end() || found->second.empty()) {
            return std::nullopt;
        }
        const std::size_t place = found->second.front();
        found->second.pop_front();
        return place;
    }

private:
    std::map<Key, std::deque<std::size_t>> m_places;
};

/// For every shape that was read the place of the one whose things it keeps.
class Partners {
public:
    Partners(const std::vector<ShapeState>& before, const std::vector<ShapeState>& read)
        : ofRead(read.size()), isKept(before.size())
    {
        Waiting<std::string> names;
        for (std::size_t place = 0; place < before.size(); ++place) {
            names.Add(before[place].name, place);
        }
        for (std::size_t i = 0; i < read.size(); ++i) {
            Take(i, names.Take(read[i].name));
        }
        Waiting<Form> forms;
        for (std::size_t place = 0; place < before.size(); ++place) {
            if (!isKept[place] && before[place].mesh != nullptr) {
                forms.Add(FormOf(before[place]), place);
            }
        }
        for (std::size_t i = 0; i < read.size(); ++i) {
            if (!ofRead[i] && read[i].mesh != nullptr) {
                Take(i, forms.Take(FormOf(read[i])));
            }
        }
    }

    std::vector<std::optional<std::size_t>> ofRead;
    std::vector<bool> isKept;

private:
    void Take(std::size_t read, std::optional<std::size_t> place)
    {
        ofRead[read] = place;
        if (place) {
            isKept[*place] = true;
        }
    }
};

void Keep(const ShapeState& former, ShapeState& shape)
{
    const bool hasCoordinates = shape.applied.coordinates == CorvexSG::CoordinateMode::FromMesh;
    shape.applied = former.applied;
    if (!hasCoordinates) {
        shape.applied.coordinates = CorvexSG::CoordinateMode::FromWrap;
    }
    shape.option = former.option;
    shape.moved = former.moved;
    shape.flags = former.flags;
    // A document does not write it again then.
    if (former.mesh != nullptr && shape.mesh != nullptr &&
        HaveSameBytes(former.mesh->vertices, shape.mesh->vertices) &&
        HaveSameBytes(former.mesh->indices, shape.mesh->indices)) {
        shape.mesh = former.mesh;
    }
}

void WearByName(const std::map<std::string, AppliedMaterial>& materials, ShapeState& shape)
{
    const auto& identity = shape.applied.identity;
    const auto known = identity == nullptr ? materials.end() : materials.find(identity->name);
    if (known != materials.end()) {
        const CorvexSG::CoordinateMode coordinates = shape.applied.coordinates;
        shape.applied = known->second;
        shape.applied.coordinates = coordinates;
    }
}

}  // namespace

ReloadedScene Reloaded(const SceneContent& scene, std::vector<ShapeState> read,
                       const SourceModel& source)
{
    const Partners partners(scene.shapes, read);
    std::map<std::string, AppliedMaterial> materials;
    for (const ShapeState& shape : scene.shapes) {
        if (shape.applied.identity != nullptr) {
            materials.emplace(shape.applied.identity->name, shape.applied);
        }
    }
    ReloadedScene result{scene, {}, {}, {}};
    std::map<std::size_t, std::size_t> places;
    for (std::size_t i = 0; i < read.size(); ++i) {
        if (const auto place = partners.ofRead[i]) {
            const ShapeState& former = scene.shapes[*place];
            Keep(former, read[i]);
            places.emplace(*place, i);
            if (former.name != read[i].name) {
                result.renamed.emplace_back(former.name, read[i].name);
            }
        } else {
            WearByName(materials, read[i]);
            result.added.push_back(read[i].name);
        }
    }
    for (std::size_t place = 0; place < scene.shapes.size(); ++place) {
        if (!partners.isKept[place]) {
            result.removed.push_back(scene.shapes[place].name);
        }
    }
    result.content.selection.clear();
    for (const std::size_t place : scene.selection) {
        if (const auto now = places.find(place); now != places.end()) {
            result.content.selection.push_back(now->second);
        }
    }
    result.content.shapes = std::move(read);
    result.content.source = source;
    return result;
}

}  // namespace studio
