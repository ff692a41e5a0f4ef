#include "Report.h"

#include <QCoreApplication>

#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace studio {
namespace {

constexpr std::array<const char*, kOutcomeCount> kOutcomeTexts{
    QT_TRANSLATE_NOOP("Interchange", "mapped"), QT_TRANSLATE_NOOP("Interchange", "approximated"),
    QT_TRANSLATE_NOOP("Interchange", "dropped")};

std::string InterchangeText(const char* text)
{
    return *text == '\0' ? std::string()
                         : QCoreApplication::translate("Interchange", text).toStdString();
}

}  // namespace

void Report::Add(ReportRow row)
{
    ++m_counts[static_cast<std::size_t>(row.outcome)];
    m_rows.push_back(std::move(row));
}

std::vector<ReportRow> LossesIn(const Report& report)
{
    constexpr std::size_t kShown = 3;
    using Key = std::tuple<std::string_view, Outcome, std::string_view>;
    const auto keyOf = [](const ReportRow& row) {
        return Key{row.property, row.outcome, row.kind.empty() ? row.note : row.kind};
    };
    std::map<Key, std::size_t> counts;
    for (const ReportRow& row : report.Rows()) {
        if (row.outcome != Outcome::Mapped) {
            ++counts[keyOf(row)];
        }
    }
    std::map<Key, std::size_t> shown;
    std::vector<ReportRow> losses;
    for (const ReportRow& row : report.Rows()) {
        const Key key = keyOf(row);
        const auto known = counts.find(key);
        const std::size_t count = known == counts.end() ? 0 : known->second;
        // One more takes no more room than its number.
        if (count == 0 || (count != kShown + 1 && shown[key] == kShown)) {
            continue;
        }
        losses.push_back(row);
        if (++shown[key] == kShown && count > kShown + 1) {
            const QString others = QCoreApplication::translate("Interchange", "and %1 more");
            losses.push_back({others.arg(count - kShown).toStdString(), row.property, row.outcome,
                              std::string(std::get<2>(key))});
        }
    }
    return losses;
}

MaterialNotes::MaterialNotes(Report& report, std::string material)
    : m_report(report), m_material(std::move(material))
{
}

void MaterialNotes::Mapped(const std::string& property, const char* note)
{
    Add(property, Outcome::Mapped, note);
}

void MaterialNotes::Approximated(const std::string& property, const char* note)
{
    Add(property, Outcome::Approximated, note);
}

void MaterialNotes::Dropped(const std::string& property, const char* note)
{
    Add(property, Outcome::Dropped, note);
}

void MaterialNotes::Add(const std::string& property, Outcome outcome, const char* note,
                        const std::string& detail)
{
    std::string text = InterchangeText(note);
    std::string kind;
    if (const std::size_t place = text.find("%1"); place != std::string::npos) {
        kind = text;
        kind.replace(place, 2, "...");
        text.replace(place, 2, detail);
    }
    m_report.Add({m_material, property, outcome, std::move(text), std::move(kind)});
}

std::string TextOf(Outcome outcome)
{
    return InterchangeText(kOutcomeTexts[static_cast<std::size_t>(outcome)]);
}

}  // namespace studio
