#include "ShapeChange.h"

#include <map>

namespace studio {

std::vector<ShapeChange> ChangesBy(const std::function<void(CorvexDB::udtMaterial&)>& edit,
                                   const ShapeList& shapes)
{
    std::map<const CorvexSG::GatheredMaterial*, std::shared_ptr<CorvexSG::GatheredMaterial>> edited;
    std::vector<ShapeChange> changes;
    for (const auto& shape : shapes) {
        const AppliedMaterial& before = shape->Applied();
        auto& after = edited[before.gathered.get()];
        if (after == nullptr) {
            after = std::make_shared<CorvexSG::GatheredMaterial>(*before.gathered);
            edit(after->material);
        }
        if (after->material != before.gathered->material) {
            changes.push_back({shape, before, {after, before.coordinates, before.identity}});
        }
    }
    return changes;
}

}  // namespace studio
