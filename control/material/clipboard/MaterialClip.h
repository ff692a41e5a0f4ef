#pragma once

#include <CorvexMaterial/Attribute.h>
#include <CorvexMaterial/MaterialRecord.h>

#include <QString>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMimeData;

namespace CorvexMaterial {

/// Attributes with their values, on their way over the clipboard.
struct MaterialClip {
    CorvexDB::udtMaterial record;       ///< of which the attributes count
    std::vector<Attribute> attributes;  ///< never empty
    bool isWhole = false;               ///< a material; its attributes are all there are
    std::string name = {};              ///< of a whole one, where it has one
};

/// What every other program gets as text is the clip's JSON, or the text where there is one: a
/// single value as a person writes it. Without a clip it is text alone.
[[nodiscard]] std::unique_ptr<QMimeData> MimeOf(const std::optional<MaterialClip>& clip,
                                                const QString& text);

/// What is on the clipboard, whoever put it there.
struct ClipReading {
    std::optional<MaterialClip> clip;
    QString text;     ///< a short text beside it or in its place, for a single value
    QString problem;  ///< for a person: why there is no clip, or what of it was not taken
};

[[nodiscard]] ClipReading ReadClip(const QMimeData* data);

}  // namespace CorvexMaterial
