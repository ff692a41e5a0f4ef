#include "WritingOutput.h"

#include "Interchange.h"

#include <QFileInfo>

namespace studio {

void WritingOutput::Outcomes(const Report& report, std::size_t materials)
{
    for (const ReportRow& row : IsJson() ? report.Rows() : LossesIn(report)) {
        Result({{"material", QString::fromStdString(row.material)},
                {"property", QString::fromStdString(row.property)},
                {"outcome", QString::fromStdString(TextOf(row.outcome))},
                {"note", QString::fromStdString(row.note)}},
               {QString::fromStdString(NoteOf(row))});
    }
    QJsonObject counts{{"materials", static_cast<qint64>(materials)}};
    for (const Outcome outcome : {Outcome::Mapped, Outcome::Approximated, Outcome::Dropped}) {
        counts[QString::fromStdString(TextOf(outcome))] =
            static_cast<qint64>(report.Count(outcome));
    }
    Result(counts, {SummaryOf(report, materials)});
    m_hasLosses = m_hasLosses || report.Count(Outcome::Dropped) > 0;
}

void WritingOutput::Reading(const SceneReading& reading, const QString& file)
{
    TellReading(reading, file, [this](const QString& text) {
        m_hasLosses = true;
        Remark(text);
    });
    if (IsJson()) {
        Outcomes(reading.report, MaterialsOf(reading.content).size());
    }
}

void WritingOutput::Unread(const QString& texture, const QString& text)
{
    m_hasLosses = true;
    Remark(text);
    Result({{"texture", texture}, {"found", QFileInfo(texture).isFile()}}, {});
}

void WritingOutput::Loss(const QString& text)
{
    m_hasLosses = true;
    Remark(text);
    Result({{"loss", text}}, {});
}

void WritingOutput::Written(const QString& file)
{
    Result({{"written", file}}, {});
}

}  // namespace studio
