#include "MaterialDifferences.h"

#include <CorvexMaterial/Schema.h>

#include <algorithm>
#include <set>
#include <unordered_set>

namespace studio {
namespace {

using CorvexMaterial::Attribute;
using CorvexMaterial::AttributeRow;
using CorvexMaterial::DifferingRow;
using CorvexMaterial::EditedValue;
using CorvexSG::GatheredMaterial;

constexpr std::size_t kShownValues = 6;

/// Each once, that of the shape chosen last in front.
using Records = std::vector<const GatheredMaterial*>;

Records RecordsOf(const ShapeList& shapes)
{
    Records records;
    std::unordered_set<const GatheredMaterial*> known;
    for (auto shape = shapes.rbegin(); shape != shapes.rend(); ++shape) {
        const GatheredMaterial* const record = (*shape)->Applied().gathered.get();
        if (known.insert(record).second) {
            records.push_back(record);
        }
    }
    return records;
}

/// The values of one row, those that are shown in the order in which they came.
class Values {
public:
    void Add(EditedValue value)
    {
        const auto [place, isNew] = m_known.insert(std::move(value));
        if (isNew && m_shown.size() < kShownValues) {
            m_shown.push_back(*place);
        }
    }
    void TellOf(Attribute attribute, std::size_t element, std::vector<DifferingRow>& rows) const
    {
        if (m_known.size() > 1) {
            rows.push_back({attribute, element, m_shown, m_known.size()});
        }
    }

private:
    std::set<EditedValue> m_known;
    std::vector<EditedValue> m_shown;
};

void CompareRow(const AttributeRow& row, const Records& records, std::vector<DifferingRow>& rows)
{
    const CorvexDB::udtMaterial& first = records.front()->material;
    const auto isOther = [&](const GatheredMaterial* record) {
        return !row.path.same(first, record->material);
    };
    if (std::ranges::none_of(records, isOther)) {
        return;
    }
    const std::size_t elements =
        row.attribute == Attribute::CustomFields ? CorvexDB::kCustomFieldCount : 1;
    for (std::size_t element = 0; element < elements; ++element) {
        Values values;
        for (const GatheredMaterial* record : records) {
            values.Add(ValueOf(row.attribute, element, record->material));
        }
        values.TellOf(row.attribute, element, rows);
    }
}

}  // namespace

std::vector<DifferingRow> DifferencesOf(const ShapeList& shapes)
{
    const Records records = RecordsOf(shapes);
    std::vector<DifferingRow> rows;
    if (records.size() < 2) {
        return rows;
    }
    for (const AttributeRow& row : CorvexMaterial::AttributeRows()) {
        if (row.path.LeadsIntoRecord()) {
            CompareRow(row, records, rows);
        }
    }
    Values modes;
    for (const GatheredMaterial* record : records) {
        modes.Add(static_cast<std::int32_t>(record->applyMode));
    }
    modes.TellOf(Attribute::ApplyRelative, 0, rows);
    return rows;
}

std::size_t MaterialsOf(const ShapeList& shapes)
{
    std::unordered_set<const void*> materials;
    for (const auto& shape : shapes) {
        const AppliedMaterial& applied = shape->Applied();
        materials.insert(applied.identity != nullptr
                             ? static_cast<const void*>(applied.identity.get())
                             : applied.gathered.get());
    }
    return materials.size();
}

}  // namespace studio
