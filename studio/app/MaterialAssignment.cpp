#include "studio/app/MaterialAssignment.h"

#include "material/AlphaTests.h"
#include "material/NamedColours.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

QString TextOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool IsNamed(const QString& text, std::string_view name)
{
    return text.compare(TextOf(name), Qt::CaseInsensitive) == 0;
}

template <std::int32_t udtMaterial::*Field, int Minimum, int Maximum>
bool SetWhole(udtMaterial& material, const QString& text)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    if (!isNumber || value < Minimum || value > Maximum) {
        return false;
    }
    material.*Field = value;
    return true;
}

template <bool udtMaterial::*Field>
bool SetFlag(udtMaterial& material, const QString& text)
{
    if (!IsNamed(text, "yes") && !IsNamed(text, "no")) {
        return false;
    }
    material.*Field = IsNamed(text, "yes");
    return true;
}

bool SetColour(udtMaterial& material, const QString& text)
{
    const auto& names = CorvexMaterial::kNamedColours;
    const auto row =
        std::ranges::find_if(names, [&](const auto& named) { return IsNamed(text, named.name); });
    if (row != names.end()) {
        material.Color = row->colour;
        return true;
    }
    const QColor colour = text.startsWith(u'#') ? QColor(text) : QColor();
    if (!colour.isValid()) {
        return false;
    }
    material.Color = CorvexMaterial::MakeColour({colour.red(), colour.green(), colour.blue()});
    return true;
}

bool SetAlphaTest(udtMaterial& material, const QString& text)
{
    const auto& names = CorvexMaterial::kAlphaTestNames;
    const auto row =
        std::ranges::find_if(names, [&](std::string_view name) { return IsNamed(text, name); });
    if (row == names.end()) {
        return SetWhole<&udtMaterial::AlphaTest, 0, 7>(material, text);
    }
    material.AlphaTest = static_cast<std::int32_t>(row - names.begin());
    return true;
}

struct AssignmentRow {
    const char* key;
    bool (*set)(udtMaterial&, const QString&);
};

constexpr int kLow = std::numeric_limits<std::int32_t>::min();
constexpr int kHigh = std::numeric_limits<std::int32_t>::max();

constexpr std::array kRows{
    AssignmentRow{"colour", SetColour},
    AssignmentRow{"ambient", SetWhole<&udtMaterial::Ambient, kLow, kHigh>},
    AssignmentRow{"emissive", SetWhole<&udtMaterial::Emissive, kLow, kHigh>},
    AssignmentRow{"specular", SetWhole<&udtMaterial::Specular, kLow, kHigh>},
    AssignmentRow{"transparency", SetWhole<&udtMaterial::Transparency, kLow, kHigh>},
    AssignmentRow{"double-sided", SetFlag<&udtMaterial::DoubleSided>},
    AssignmentRow{"alpha-test", SetAlphaTest},
    AssignmentRow{"alpha-test-reference", SetWhole<&udtMaterial::AlphaTestReference, kLow, kHigh>},
};

}  // namespace

QStringList MaterialKeys()
{
    QStringList keys;
    for (const AssignmentRow& row : kRows) {
        keys << QLatin1String(row.key);
    }
    return keys;
}

std::optional<QString> AssignMaterial(udtMaterial& material, const QString& assignment)
{
    const QString key = assignment.section(u'=', 0, 0).trimmed();
    const QString value = assignment.section(u'=', 1).trimmed();
    const auto row = std::ranges::find_if(
        kRows, [&](const AssignmentRow& candidate) { return key == QLatin1String(candidate.key); });
    if (row == kRows.end()) {
        return QCoreApplication::translate("MaterialAssignment", "\"%1\" is none of %2.")
            .arg(key, MaterialKeys().join(QStringLiteral(", ")));
    }
    if (!row->set(material, value)) {
        return QCoreApplication::translate("MaterialAssignment", "\"%1\" is no value for %2.")
            .arg(value, key);
    }
    return std::nullopt;
}

}  // namespace studio
