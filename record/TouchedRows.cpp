#include "TouchedRows.h"

#include <CorvexMaterial/Schema.h>

#include <algorithm>
#include <initializer_list>

namespace CorvexMaterial {

namespace {

using enum Attribute;

/// What only means something together.
constexpr std::initializer_list<Attribute> kTogether[] = {
    {Plugin, PluginParameters},
    {RayTraceType, RaytracePredefinedType, RaytracePredefinedMaterial},
    {OriginU, OriginV, ScaleU, ScaleV},
    {RaytraceColorPattern0Red, RaytraceColorPattern0Green, RaytraceColorPattern0Blue,
     RaytraceColorPattern0Alpha},
    {RaytraceColorPattern1Red, RaytraceColorPattern1Green, RaytraceColorPattern1Blue,
     RaytraceColorPattern1Alpha},
    {RaytraceColorPattern2Red, RaytraceColorPattern2Green, RaytraceColorPattern2Blue,
     RaytraceColorPattern2Alpha},
    {RaytraceColorPattern3Red, RaytraceColorPattern3Green, RaytraceColorPattern3Blue,
     RaytraceColorPattern3Alpha},
};

void AddRow(TouchedRows& rows, Attribute attribute)
{
    const std::size_t elements = attribute == CustomFields ? CorvexDB::kCustomFieldCount : 1;
    for (std::size_t element = 0; element < elements; ++element) {
        rows.push_back({attribute, element});
    }
}

}  // namespace

TouchedRows RowsOf(std::span<const Attribute> attributes)
{
    TouchedRows rows;
    std::ranges::for_each(attributes, [&](Attribute attribute) { AddRow(rows, attribute); });
    return rows;
}

TouchedRows RowsOf(AttributeGroup group)
{
    TouchedRows rows = RowsOfMaterial();
    std::erase_if(rows, [group](const TouchedRow& row) {
        return CorvexMaterial::RowOf(row.attribute).group != group;
    });
    return rows;
}

TouchedRows RowsOfMaterial()
{
    TouchedRows rows;
    for (const AttributeRow& row : AttributeRows()) {
        if (row.path.LeadsIntoRecord()) {
            AddRow(rows, row.attribute);
        }
    }
    return rows;
}

TouchedRows RowsThatDiffer(const CorvexDB::udtMaterial& one, const CorvexDB::udtMaterial& other)
{
    TouchedRows rows;
    for (const AttributeRow& row : AttributeRows()) {
        if (row.path.LeadsIntoRecord() && !row.path.same(one, other)) {
            AddRow(rows, row.attribute);
        }
    }
    return rows;
}

EditedValue ValueOf(Attribute attribute, std::size_t element, const CorvexDB::udtMaterial& record)
{
    if (attribute == CustomFields) {
        return record.CustomFields.at(element);
    }
    return std::visit(
        [](auto&& value) -> EditedValue {
            if constexpr (std::is_constructible_v<EditedValue, decltype(value)>) {
                return std::forward<decltype(value)>(value);
            }
            return {};  // custom fields, each a row of its own above
        },
        RowOf(attribute).path.get(record));
}

void TakeRows(CorvexDB::udtMaterial& record, const std::vector<EditedRow>& rows)
{
    for (const EditedRow& row : rows) {
        if (row.attribute == CustomFields) {
            record.CustomFields.at(row.element) = std::get<std::string>(row.value);
        } else if (const RecordPath& path = RowOf(row.attribute).path; path.LeadsIntoRecord()) {
            std::visit([&](const auto& value) { path.set(record, value); }, row.value);
        }
    }
}

void PendingEdit::Touch(const TouchedRows& rows)
{
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
    for (const auto& together : kTogether) {
        const auto isIn = [&](const TouchedRow& row) {
            return std::ranges::find(together, row.attribute) != together.end();
        };
        if (std::ranges::any_of(rows, isIn)) {
            std::ranges::for_each(together,
                                  [this](Attribute attribute) { AddRow(m_rows, attribute); });
        }
    }
    std::ranges::sort(m_rows);
    m_rows.erase(std::unique(m_rows.begin(), m_rows.end()), m_rows.end());
}

void PendingEdit::TouchWhole(TouchedRows rows, std::string name)
{
    m_rows = std::move(rows);
    m_name = std::move(name);
    std::ranges::sort(m_rows);
    m_isWhole = true;
}

void PendingEdit::Forget()
{
    m_rows.clear();
    m_isWhole = false;
    m_name.clear();
}

MaterialEdit PendingEdit::WithValues(const CorvexDB::udtMaterial& record,
                                     CorvexDB::ApplyMode mode) const
{
    MaterialEdit edit{{}, m_isWhole, m_name};
    for (const TouchedRow& row : m_rows) {
        edit.rows.push_back({row.attribute, row.element,
                             row.attribute == ApplyRelative
                                 ? static_cast<std::int32_t>(mode)
                                 : ValueOf(row.attribute, row.element, record)});
    }
    return edit;
}

}  // namespace CorvexMaterial
