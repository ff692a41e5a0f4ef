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

// Texts that a user typed are bound, never written into the statement.
class SqlCondition {
public:
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

    std::vector<std::string> texts;

private:
    std::string Contains(const std::string& column, const std::string& part)
    {
        texts.push_back(part);
        return "instr(" + column + ", ?" + std::to_string(texts.size()) + ") > 0";
    }
};

}  // namespace

Statement CompiledQuery(Database& database, const LibraryQuery& query)
{
    sqlite3_create_function(database.Handle(), "colour_distance", 2,
                            SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                            SqlColourDistance, nullptr, nullptr);
    // The plus keeps the index of the trash out: most entries are read anyway, best in file order.
    std::string sql = "SELECT id FROM entries WHERE +trashed = 0";
    SqlCondition condition;
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
