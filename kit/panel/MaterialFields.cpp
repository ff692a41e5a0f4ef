#include "MaterialFields.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace studio {
namespace {

using CorvexMaterial::Attribute;
using CorvexMaterial::AttributeGroup;
using CorvexMaterial::AttributeRow;
using CorvexMaterial::AttributeRows;

constexpr const char* kContext = "Attribute";

/// What comes along with the choice of a texture.
bool IsOfTextures(Attribute attribute)
{
    const AttributeRow& row = RowOf(attribute);
    const bool isOfLayer =
        row.group == AttributeGroup::Blending && row.touches == CorvexMaterial::Touches::Texture;
    return isOfLayer || row.group == AttributeGroup::Textures ||
           row.group == AttributeGroup::Placement || attribute == Attribute::TilesPerUnit;
}

/// The group of all of them; nothing where they are of several.
std::optional<AttributeGroup> CommonGroup(const FieldSet& fields)
{
    const AttributeGroup first = RowOf(*fields.begin()).group;
    const auto isOfFirst = [first](Attribute field) { return RowOf(field).group == first; };
    if (std::ranges::all_of(fields, isOfFirst)) {
        return first;
    }
    return std::ranges::all_of(fields, IsOfTextures) ? std::optional(AttributeGroup::Textures)
                                                     : std::nullopt;
}

/// The first of those that change together.
Attribute StandsFor(const AttributeRow& row)
{
    if (LabelOf(row.group) == nullptr) {
        return row.attribute;
    }
    return std::ranges::find(AttributeRows(), row.group, &AttributeRow::group)->attribute;
}

QString Uncapitalised(const char* label)
{
    QString text = QCoreApplication::translate(kContext, label);
    text[0] = text[0].toLower();
    return text;
}

}  // namespace

FieldSet FieldsOf(const CorvexMaterial::MaterialEdit& edit)
{
    FieldSet fields;
    for (const CorvexMaterial::EditedRow& edited : edit.rows) {
        if (const AttributeRow& row = RowOf(edited.attribute); row.path.LeadsIntoRecord()) {
            fields.insert(StandsFor(row));
        }
    }
    return fields;
}

FieldSet Differences(const CorvexDB::udtMaterial& one, const CorvexDB::udtMaterial& other)
{
    FieldSet fields;
    for (const AttributeRow& row : AttributeRows()) {
        if (row.path.LeadsIntoRecord() && !row.path.same(one, other)) {
            fields.insert(StandsFor(row));
        }
    }
    return fields;
}

QString NameOf(const FieldSet& fields)
{
    const auto group = fields.empty() ? std::nullopt : CommonGroup(fields);
    if (!group) {
        return QCoreApplication::translate(kContext, "material");
    }
    const bool isOne = fields.size() == 1 && LabelOf(*group) == nullptr;
    return Uncapitalised(isOne ? RowOf(*fields.begin()).label : TitleOf(*group));
}

}  // namespace studio
