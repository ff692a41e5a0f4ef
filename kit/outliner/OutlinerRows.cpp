#include "OutlinerRows.h"

#include "MaterialName.h"

#include <QCollator>
#include <QStringList>

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace studio {
namespace {

class Words {
public:
    explicit Words(const QString& search) : m_words(search.split(u' ', Qt::SkipEmptyParts)) {}

    [[nodiscard]] bool AreIn(const std::string& shape, const QString& material) const
    {
        const QString name = m_words.empty() ? QString() : QString::fromStdString(shape);
        return std::ranges::all_of(m_words, [&](const QString& word) {
            return name.contains(word, Qt::CaseInsensitive) ||
                   material.contains(word, Qt::CaseInsensitive);
        });
    }

private:
    QStringList m_words;
};

/// Positions in the order of their names; "Leg 2" stands before "Leg 10".
std::vector<std::size_t> Ranked(const std::vector<QString>& names)
{
    // The C locale, which some servers have, knows no numbers.
    const QLocale user;
    QCollator collator(user.language() == QLocale::C ? QLocale(QLocale::English) : user);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(names.size());
    for (const QString& name : names) {
        keys.push_back(collator.sortKey(name));
    }
    std::vector<std::size_t> order(names.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&keys](std::size_t one, std::size_t other) {
        return keys[one].compare(keys[other]) < 0;
    });
    return order;
}

template <typename Item>
void Arrange(std::vector<Item>& items, const std::vector<std::size_t>& order)
{
    std::vector<Item> arranged;
    arranged.reserve(items.size());
    for (const std::size_t place : order) {
        arranged.push_back(std::move(items[place]));
    }
    items = std::move(arranged);
}

/// Shapes that share no named material go together where they have the same record.
const void* MaterialOf(const AppliedMaterial& applied)
{
    return applied.identity != nullptr ? static_cast<const void*>(applied.identity.get())
                                       : applied.gathered.get();
}

std::vector<OutlinerMaterial> MaterialsIn(const ShapeList& scene, std::vector<std::size_t>& ofShape)
{
    std::vector<OutlinerMaterial> materials;
    std::unordered_map<const void*, std::size_t> places;
    for (const auto& shape : scene) {
        const AppliedMaterial& applied = shape->Applied();
        const auto [place, isNew] = places.emplace(MaterialOf(applied), materials.size());
        if (isNew) {
            const bool isNamed = applied.identity != nullptr && !applied.identity->name.empty();
            materials.push_back(
                {QString::fromStdString(isNamed ? applied.identity->name
                                                : DescriptiveName(shape->Material())),
                 isNamed,
                 {},
                 {}});
        }
        materials[place->second].wearers.push_back(shape);
        ofShape.push_back(place->second);
    }
    return materials;
}

void SortMaterials(OutlinerRows& rows, Qt::SortOrder direction)
{
    std::vector<QString> names;
    for (const OutlinerMaterial& material : rows.materials) {
        names.push_back(material.name);
    }
    std::vector<std::size_t> order = Ranked(names);
    if (direction == Qt::DescendingOrder) {
        std::ranges::reverse(order);
    }
    const auto hidden =
        std::stable_partition(order.begin(), order.end(), [&rows](std::size_t place) {
            return !rows.materials[place].shown.empty();
        });
    rows.shownMaterials = static_cast<std::size_t>(hidden - order.begin());
    std::vector<std::size_t> places(order.size());
    for (std::size_t place = 0; place < order.size(); ++place) {
        places[order[place]] = place;
    }
    for (std::size_t& material : rows.materialOf) {
        material = places[material];
    }
    Arrange(rows.materials, order);
}

}  // namespace

OutlinerRows RowsOf(const ShapeList& scene, const QString& search, OutlinerOrder order,
                    Qt::SortOrder direction)
{
    OutlinerRows rows;
    std::vector<std::size_t> ofShape;
    rows.materials = MaterialsIn(scene, ofShape);
    const Words words(search);
    std::vector<QString> names;
    for (std::size_t place = 0; place < scene.size(); ++place) {
        OutlinerMaterial& material = rows.materials[ofShape[place]];
        if (words.AreIn(scene[place]->Name(), material.name)) {
            rows.shapes.push_back(scene[place]);
            rows.materialOf.push_back(ofShape[place]);
            material.shown.push_back(scene[place]);
            if (order != OutlinerOrder::Scene) {
                names.push_back(order == OutlinerOrder::ByMaterial
                                    ? material.name
                                    : QString::fromStdString(scene[place]->Name()));
            }
        }
    }
    if (order != OutlinerOrder::Scene) {
        std::vector<std::size_t> ranked = Ranked(names);
        if (direction == Qt::DescendingOrder) {
            std::ranges::reverse(ranked);
        }
        Arrange(rows.shapes, ranked);
        Arrange(rows.materialOf, ranked);
    }
    SortMaterials(rows, order == OutlinerOrder::Scene ? Qt::AscendingOrder : direction);
    return rows;
}

bool HaveSameRows(const OutlinerRows& one, const OutlinerRows& other)
{
    const auto haveSame = [](const OutlinerMaterial& left, const OutlinerMaterial& right) {
        return left.shown == right.shown && left.wearers == right.wearers;
    };
    return one.shapes == other.shapes && one.materialOf == other.materialOf &&
           std::ranges::equal(one.materials, other.materials, haveSame);
}

}  // namespace studio
