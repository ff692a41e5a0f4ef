#include "QuerySql.h"

#include "ColourDistance.h"
#include "LibraryQuery.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace studio {
namespace {

std::string ColumnOf(NumberProperty property)
{
    return std::string(kNumberColumns.at(static_cast<std::size_t>(property)));
}

std::string ColumnOf(TextProperty property)
{
    return std::string(kTextColumns.at(static_cast<std::size_t>(property)));
}

const char* OperatorOf(Comparison comparison)
{
    constexpr std::array kOperators{" < ", " <= ", " = ", " <> ", " >= ", " > "};
    return kOperators.at(static_cast<std::size_t>(comparison));
}

// Any number as SQL understands it, under every locale.
std::string SqlNumber(double value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

// `a.0.b` is the member `b` of the first in the list `a`.
std::string JsonPath(std::string_view word)
{
    std::string path = "$";
    for (std::size_t begin = 0; begin <= word.size();) {
        const std::size_t end = std::min(word.find('.', begin), word.size());
        const std::string name(word.substr(begin, end - begin));
        path += name.find_first_not_of("0123456789") == std::string::npos ? '[' + name + ']'
                                                                          : '.' + name;
        begin = end + 1;
    }
    return path;
}

double FactoryNumber(CorvexMaterial::Attribute attribute)
{
    return std::visit(
        [](const auto& value) {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>) {
                return static_cast<double>(value);
            }
            return 0.0;
        },
        RowOf(attribute).path.get(CorvexDB::udtMaterial()));
}

void SqlColourDistance(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER) {
        sqlite3_result_double(
            context, ColourDistance(sqlite3_value_int(values[0]), sqlite3_value_int(values[1])));
    }
}

void SqlFolded(sqlite3_context* context, int, sqlite3_value** values)
{
    const auto* text = sqlite3_value_text(values[0]);
    const std::size_t size = static_cast<std::size_t>(sqlite3_value_bytes(values[0]));
    const std::string folded =
        text == nullptr ? std::string()
                        : Folded({static_cast<const char*>(static_cast<const void*>(text)), size});
    sqlite3_result_text64(context, folded.data(), folded.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void SqlMark(sqlite3_context* context, int, sqlite3_value** values)
{
    const auto& marks = *static_cast<const EntryMarks*>(sqlite3_user_data(context));
    const EntryMark mark = MarkOf(marks, sqlite3_value_int64(values[1]));
    switch (static_cast<MarkProperty>(sqlite3_value_int(values[0]))) {
    case MarkProperty::Favourite:
        return sqlite3_result_int(context, mark.isFavourite ? 1 : 0);
    case MarkProperty::Rating:
        return sqlite3_result_int(context, mark.rating);
    case MarkProperty::Used:
        return sqlite3_result_int64(context, mark.used);
    }
}

// Texts that a user typed are bound, never written into the statement.
class SqlCondition {
public:
    explicit SqlCondition(bool hasDetails) : m_hasDetails(hasDetails) {}

    std::string operator()(const NameTest& test) { return Contains("folded", test.part); }
    std::string operator()(const TextTest& test)
    {
        return Contains(ColumnOf(test.property), test.part);
    }
    std::string operator()(const NumberTest& test)
    {
        return ColumnOf(test.property) + OperatorOf(test.comparison) + SqlNumber(test.value);
    }
    std::string operator()(const AttributeTest& test)
    {
        // An entry with a colour is a material; what its writer did not know has its default.
        return "(SELECT CASE WHEN colour NOT NULL AND json_valid(json) THEN coalesce("
               "json_extract(json, '" +
               JsonPath(RowOf(test.attribute).word) + "'), " +
               SqlNumber(FactoryNumber(test.attribute)) +
               ") END FROM contents WHERE entry = entries.id)" + OperatorOf(test.comparison) +
               SqlNumber(test.value);
    }
    std::string operator()(const MaskTest& test)
    {
        return "(" + ColumnOf(test.property) + " & " + std::to_string(test.mask) + ") <> 0";
    }
    std::string operator()(const ColourTest& test)
    {
        return "colour_distance(colour, " + std::to_string(test.colour) +
               ") <= " + SqlNumber(test.distance);
    }
    std::string operator()(const PresenceTest& test) { return ColumnOf(test.property) + " <> ''"; }
    std::string operator()(const ThumbnailTest&)
    {
        return "EXISTS (SELECT 1 FROM thumbnails WHERE entry = entries.id)";
    }
    std::string operator()(const LabelTest& test)
    {
        return m_hasDetails ? "id IN (SELECT entry FROM labels WHERE kind = " +
                                  std::to_string(static_cast<int>(test.kind)) + " AND " +
                                  (test.isWhole ? Equals("folded", test.label)
                                                : Contains("folded", test.label)) +
                                  ")"
                            : "0";
    }
    std::string operator()(const DetailTest& test)
    {
        constexpr std::array kColumns{"folded(author)", "folded(licence)", "folded(source)"};
        return m_hasDetails
                   ? "id IN (SELECT entry FROM details WHERE " +
                         Contains(kColumns.at(static_cast<std::size_t>(test.text)), test.part) + ")"
                   : "0";
    }
    std::string operator()(const MarkTest& test)
    {
        return "user_mark(" + std::to_string(static_cast<int>(test.property)) + ", id)" +
               OperatorOf(test.comparison) + SqlNumber(test.value);
    }

    std::vector<std::string> texts;

private:
    std::string Equals(const std::string& column, const std::string& text)
    {
        texts.push_back(text);
        return column + " = ?" + std::to_string(texts.size());
    }
    std::string Contains(const std::string& column, const std::string& part)
    {
        texts.push_back(part);
        return "instr(" + column + ", ?" + std::to_string(texts.size()) + ") > 0";
    }

    bool m_hasDetails;
};

using SqlFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

void Define(Database& database, const char* name, int parameters, SqlFunction function,
            const void* data = nullptr)
{
    sqlite3_create_function(database.Handle(), name, parameters,
                            SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                            const_cast<void*>(data), function, nullptr, nullptr);
}

// Each definition costs the statements that are kept their compilation.
template <typename Test>
bool HasTest(const LibraryQuery& query)
{
    return std::ranges::any_of(
        query.terms, [](const QueryTerm& term) { return std::holds_alternative<Test>(term.test); });
}

}  // namespace

Statement CompiledQuery(Database& database, const LibraryQuery& query, const QuerySources& sources)
{
    if (HasTest<ColourTest>(query)) {
        Define(database, "colour_distance", 2, SqlColourDistance);
    }
    if (HasTest<DetailTest>(query)) {
        Define(database, "folded", 1, SqlFolded);
    }
    if (HasTest<MarkTest>(query)) {
        Define(database, "user_mark", 2, SqlMark, &sources.marks);
    }
    // The plus keeps the index of the trash out: most entries are read anyway, best in file order.
    std::string sql = "SELECT id FROM entries WHERE +trashed = 0";
    SqlCondition condition(sources.hasDetails);
    for (const QueryTerm& term : query.terms) {
        // What an entry does not have it does not fulfil, but fulfils negated.
        const std::string test = "coalesce(" + std::visit(condition, term.test) + ", 0)";
        sql += term.isNegated ? " AND NOT " + test : " AND " + test;
    }
    Statement statement = database.Compile(sql + " ORDER BY id");
    for (std::size_t i = 0; i < condition.texts.size(); ++i) {
        statement.Bind(static_cast<int>(i) + 1, condition.texts[i]);
    }
    return statement;
}

}  // namespace studio
