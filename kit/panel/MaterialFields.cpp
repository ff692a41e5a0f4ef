#include "MaterialFields.h"

#include <QCoreApplication>

#include <algorithm>

namespace studio {
namespace {

using CorvexMaterial::Attribute;
using CorvexMaterial::AttributeRow;
using CorvexMaterial::AttributeRows;

constexpr const char* kContext = "Attribute";

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
    if (fields.size() != 1) {
        return QCoreApplication::translate(kContext, "material");
    }
    const AttributeRow& row = RowOf(*fields.begin());
    const char* const group = LabelOf(row.group);
    return Uncapitalised(group != nullptr ? group : row.label);
}

}  // namespace studio
