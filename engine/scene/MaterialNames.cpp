#include "MaterialNames.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

namespace studio {
namespace {

using Identity = std::shared_ptr<const SceneMaterial>;

const Identity& IdentityOf(const std::shared_ptr<StudioShape>& shape)
{
    return shape->Applied().identity;
}

std::string Stem(const std::string& name)
{
    const std::size_t last = name.find_last_not_of("0123456789");
    const bool isNumbered =
        last != std::string::npos && last > 0 && last + 1 < name.size() && name[last] == ' ';
    return isNumbered ? name.substr(0, last) : name;
}

/// The first of "Oak", "Oak 2", "Oak 3" and so on that will do.
template <typename WillDo>
std::string Numbered(const std::string& name, const WillDo& willDo)
{
    std::string numbered = name;
    for (int number = 2; !willDo(numbered); ++number) {
        numbered = Stem(name) + ' ' + std::to_string(number);
    }
    return numbered;
}

class Names {
public:
    explicit Names(const ShapeList& scene)
    {
        for (const auto& shape : scene) {
            if (const Identity& identity = IdentityOf(shape); identity != nullptr) {
                m_taken.insert(identity->name);
            }
        }
    }

    /// From now on taken.
    std::string Unique(const std::string& name)
    {
        return Numbered(name,
                        [this](const std::string& each) { return m_taken.insert(each).second; });
    }

private:
    std::set<std::string> m_taken;
};

Identity Named(const Identity& like, std::string name)
{
    SceneMaterial material = like == nullptr ? SceneMaterial{} : *like;
    material.name = std::move(name);
    return std::make_shared<SceneMaterial>(std::move(material));
}

bool HaveSame(const std::shared_ptr<const LibraryLink>& one,
              const std::shared_ptr<const LibraryLink>& other)
{
    return one == other || (one != nullptr && other != nullptr && *one == *other);
}

}  // namespace

void SplitShared(std::vector<ShapeChange>& changes, const ShapeList& scene)
{
    std::unordered_set<const StudioShape*> changed;
    std::unordered_set<const SceneMaterial*> edited;
    for (const ShapeChange& change : changes) {
        changed.insert(change.shape.get());
        edited.insert(change.before.identity.get());
    }
    edited.erase(nullptr);
    std::unordered_set<const SceneMaterial*> staying;
    for (const auto& shape : scene) {
        if (edited.contains(IdentityOf(shape).get()) && !changed.contains(shape.get())) {
            staying.insert(IdentityOf(shape).get());
        }
    }
    if (staying.empty()) {
        return;
    }
    Names names(scene);
    std::map<Identity, Identity> split;
    for (ShapeChange& change : changes) {
        const Identity& former = change.before.identity;
        if (staying.contains(former.get()) && change.before.gathered != change.after.gathered) {
            Identity& own = split[former];
            if (own == nullptr) {
                own = Named(former, names.Unique(former->name));
            }
            change.after.identity = own;
        }
    }
}

std::vector<ShapeChange> RenamedMaterials(const ShapeList& shapes, const std::string& name,
                                          const ShapeList& scene)
{
    Names names(scene);
    // Those without a name share one where they have the same record.
    std::map<std::pair<Identity, const void*>, Identity> renamed;
    std::vector<ShapeChange> changes;
    for (const auto& shape : Sharers(shapes, scene)) {
        ShapeChange change{shape, shape->Applied(), shape->Applied()};
        const Identity& former = IdentityOf(shape);
        if (former == nullptr || former->name != name) {
            Identity& now =
                renamed[{former, former == nullptr ? shape->Applied().gathered.get() : nullptr}];
            now = now == nullptr ? Named(former, names.Unique(name)) : now;
            change.after.identity = now;
        }
        changes.push_back(std::move(change));
    }
    return changes;
}

std::vector<ShapeChange> MadeUnique(const ShapeList& shapes, const ShapeList& scene)
{
    Names names(scene);
    std::map<Identity, std::size_t> users;
    for (const auto& shape : scene) {
        ++users[IdentityOf(shape)];
    }
    std::vector<ShapeChange> changes;
    for (const auto& shape : shapes) {
        const Identity& identity = IdentityOf(shape);
        if (identity != nullptr && users[identity] > 1) {
            --users[identity];
            ShapeChange change{shape, shape->Applied(), shape->Applied()};
            change.after.identity = Named(identity, names.Unique(identity->name));
            changes.push_back(std::move(change));
        }
    }
    return changes;
}

std::vector<ShapeChange> SharedWith(const StudioShape& wearer, const ShapeList& shapes,
                                    const std::string& name, const ShapeList& scene)
{
    const AppliedMaterial worn = wearer.Applied();
    const Identity shared =
        worn.identity != nullptr ? worn.identity : Named(nullptr, Names(scene).Unique(name));
    std::vector<ShapeChange> changes;
    const auto give = [&](const std::shared_ptr<StudioShape>& shape) {
        ShapeChange change{shape, shape->Applied(), shape->Applied()};
        change.after.gathered = worn.gathered;
        change.after.identity = shared;
        if (change.after != change.before) {
            changes.push_back(std::move(change));
        }
    };
    std::ranges::for_each(shapes, give);
    if (worn.identity == nullptr && !changes.empty()) {
        const std::set<std::shared_ptr<StudioShape>> given(shapes.begin(), shapes.end());
        for (const auto& shape : scene) {
            if (shape->Applied().gathered == worn.gathered && IdentityOf(shape) == nullptr &&
                !given.contains(shape)) {
                give(shape);
            }
        }
    }
    return changes;
}

void ShareNamed(std::vector<ShapeChange>& changes, const std::string& name, const ShapeList& scene,
                const std::shared_ptr<const LibraryLink>& link)
{
    if (changes.empty()) {
        return;
    }
    const auto given = changes.front().after.gathered;
    const auto looksSame = [&](const AppliedMaterial& applied) {
        return HaveSame(applied.identity->link, link) &&
               applied.gathered->applyMode == given->applyMode &&
               applied.gathered->material == given->material;
    };
    std::multimap<std::string, const AppliedMaterial*> known;
    const auto know = [&known](const AppliedMaterial& applied) {
        if (applied.identity != nullptr) {
            known.emplace(applied.identity->name, &applied);
        }
    };
    std::unordered_set<const StudioShape*> changed;
    for (const ShapeChange& change : changes) {
        changed.insert(change.shape.get());
        if (change.before.identity != nullptr && looksSame(change.before)) {
            know(change.before);
        }
    }
    for (const auto& shape : scene) {
        if (!changed.contains(shape.get())) {
            know(shape->Applied());
        }
    }
    AppliedMaterial shared{given};
    const std::string unique = Numbered(name, [&](const std::string& each) {
        const auto [first, last] = known.equal_range(each);
        const auto same =
            std::find_if(first, last, [&](const auto& row) { return looksSame(*row.second); });
        if (same != last) {
            shared = *same->second;
        }
        return first == last || same != last;
    });
    if (shared.identity == nullptr) {
        shared.identity = std::make_shared<SceneMaterial>(SceneMaterial{unique, {}, link});
    }
    for (ShapeChange& change : changes) {
        change.after.identity = shared.identity;
        if (change.after.gathered == given) {
            change.after.gathered = shared.gathered;
        }
    }
}

std::vector<ShapeChange> LinkedTo(const std::shared_ptr<const LibraryLink>& link,
                                  const ShapeList& shapes, const ShapeList& scene)
{
    std::map<Identity, Identity> linked;
    std::vector<ShapeChange> changes;
    for (const auto& shape : Sharers(shapes, scene)) {
        if (const Identity& former = IdentityOf(shape); former != nullptr) {
            Identity& now = linked[former];
            if (now == nullptr) {
                SceneMaterial material = *former;
                material.link = link;
                now = std::make_shared<SceneMaterial>(std::move(material));
            }
            changes.push_back({shape, shape->Applied(), shape->Applied()});
            changes.back().after.identity = now;
        }
    }
    return changes;
}

ShapeList Sharers(const ShapeList& shapes, const ShapeList& scene)
{
    std::set<Identity> identities;
    ShapeList sharers = shapes;
    for (const auto& shape : shapes) {
        identities.insert(IdentityOf(shape));
    }
    identities.erase(nullptr);
    const std::set<std::shared_ptr<StudioShape>> given(shapes.begin(), shapes.end());
    std::ranges::copy_if(scene, std::back_inserter(sharers), [&](const auto& shape) {
        return identities.contains(IdentityOf(shape)) && !given.contains(shape);
    });
    return sharers;
}

}  // namespace studio
