#include "LibraryFile.h"

#include <QString>

namespace studio {
namespace {

std::string ShownUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

std::vector<std::string> FirstColumn(Statement rows)
{
    std::vector<std::string> texts;
    while (rows.Step()) {
        texts.push_back(ShownUtf8(rows.Text(0)));
    }
    return texts;
}

}  // namespace

EntryDetails LibraryFile::DetailsOf(EntryId id)
{
    EntryDetails details;
    if (LibraryFormatOf(m_database) < kFormatWithDetails) {
        return details;
    }
    Statement texts =
        m_database.Use("SELECT author, licence, source FROM details WHERE entry = ?1");
    texts.Bind(1, id);
    if (texts.Step()) {
        details.author = ShownUtf8(texts.Text(0));
        details.licence = ShownUtf8(texts.Text(1));
        details.source = ShownUtf8(texts.Text(2));
    }
    Statement labels =
        m_database.Use("SELECT kind, name FROM labels WHERE entry = ?1 ORDER BY folded");
    labels.Bind(1, id);
    while (labels.Step()) {
        const bool isTag = labels.Integer(0) == static_cast<std::int64_t>(LabelKind::Tag);
        LabelsIn(details, isTag ? LabelKind::Tag : LabelKind::Collection)
            .push_back(ShownUtf8(labels.Text(1)));
    }
    return details;
}

std::vector<LabelUse> LibraryFile::Labels(LabelKind kind)
{
    std::vector<LabelUse> labels;
    if (LibraryFormatOf(m_database) < kFormatWithDetails) {
        return labels;
    }
    Statement rows = m_database.Use(
        "SELECT min(labels.name), count(*) FROM labels JOIN entries ON id = entry "
        "WHERE kind = ?1 AND trashed = 0 GROUP BY labels.folded ORDER BY labels.folded");
    rows.Bind(1, static_cast<std::int64_t>(kind));
    while (rows.Step()) {
        labels.push_back({ShownUtf8(rows.Text(0)), rows.Integer(1)});
    }
    return labels;
}

std::vector<std::string> LibraryFile::Authors()
{
    return LibraryFormatOf(m_database) < kFormatWithDetails
               ? std::vector<std::string>()
               : FirstColumn(m_database.Use(
                     "SELECT DISTINCT author FROM details WHERE author <> '' ORDER BY author"));
}

std::vector<std::string> LibraryFile::Licences()
{
    return LibraryFormatOf(m_database) < kFormatWithDetails
               ? std::vector<std::string>()
               : FirstColumn(m_database.Use(
                     "SELECT DISTINCT licence FROM details WHERE licence <> '' ORDER BY licence"));
}

void LibraryFile::PutDetails(EntryId id, const EntryDetails& details)
{
    m_database.Use("DELETE FROM details WHERE entry = ?1").Bind(1, id).Run();
    m_database.Use("DELETE FROM labels WHERE entry = ?1").Bind(1, id).Run();
    if (!details.author.empty() || !details.licence.empty() || !details.source.empty()) {
        m_database
            .Use("INSERT INTO details (entry, author, licence, source) VALUES (?1, ?2, ?3, ?4)")
            .Bind(1, id)
            .Bind(2, details.author)
            .Bind(3, details.licence)
            .Bind(4, details.source)
            .Run();
    }
    for (const LabelKind kind : {LabelKind::Tag, LabelKind::Collection}) {
        for (const std::string& label : TidyLabels(LabelsIn(details, kind))) {
            m_database.Use("INSERT INTO labels (kind, folded, entry, name) VALUES (?1, ?2, ?3, ?4)")
                .Bind(1, static_cast<std::int64_t>(kind))
                .Bind(2, Folded(label))
                .Bind(3, id)
                .Bind(4, label)
                .Run();
        }
    }
}

}  // namespace studio
