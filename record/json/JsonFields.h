#pragma once

// The attributes of a material as a JSON object: each stands where its word says.

#include <CorvexMaterial/Schema.h>

#include <QJsonObject>

#include <span>
#include <string>
#include <vector>

namespace CorvexMaterial {

/// A layer without a file is left out.
[[nodiscard]] QJsonObject JsonOfRecord(const CorvexDB::udtMaterial& record);

/// These attributes alone, a layer without a file among them.
[[nodiscard]] QJsonObject JsonOfAttributes(const CorvexDB::udtMaterial& record,
                                           std::span<const Attribute> attributes);

/// Several values of one attribute.
[[nodiscard]] QJsonValue JsonOf(const AttributeValue& value);

/// What is missing leaves the record as it is; what is of the wrong type or out of range does so
/// too and is a problem. A raytrace amount outside its range becomes the nearest inside, which is a
/// problem too. Gives the attributes that the record has taken.
std::vector<Attribute> ReadRecord(const QJsonObject& json, CorvexDB::udtMaterial& record,
                                  std::vector<std::string>& problems);

/// What of the object is no attribute: a later program's, which must not get lost.
[[nodiscard]] QJsonObject UnknownFields(const QJsonObject& json);
/// The members of both, `json`'s where both have one.
[[nodiscard]] QJsonObject WithUnknown(QJsonObject json, const QJsonObject& unknown);

}  // namespace CorvexMaterial
