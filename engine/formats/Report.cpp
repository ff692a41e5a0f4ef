#include "Report.h"

#include <QCoreApplication>

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
    if (const std::size_t place = text.find("%1"); place != std::string::npos) {
        text.replace(place, 2, detail);
    }
    m_report.Add({m_material, property, outcome, std::move(text)});
}

std::string TextOf(Outcome outcome)
{
    return InterchangeText(kOutcomeTexts[static_cast<std::size_t>(outcome)]);
}

}  // namespace studio
