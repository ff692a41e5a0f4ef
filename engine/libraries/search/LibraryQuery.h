#pragma once

#include "EntryDetails.h"
#include "SearchProperties.h"
#include <CorvexMaterial/Colour.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace studio {

enum class Comparison : std::int32_t {
    Less,
    LessOrEqual,
    Equal,
    NotEqual,
    GreaterOrEqual,
    Greater
};

struct NameTest {
    std::string part;  ///< without case
};
struct NumberTest {
    NumberProperty property{};
    Comparison comparison{};
    double value = 0.0;
};
/// Of an attribute without a column: looked up in the entry itself, which may be of a program that
/// did not know it yet.
struct AttributeTest {
    CorvexMaterial::Attribute attribute{};
    Comparison comparison{};
    double value = 0.0;
};
struct TextTest {
    TextProperty property{};
    std::string part;  ///< without case
};
/// Some bit of the mask is set in the number.
struct MaskTest {
    NumberProperty property{};
    std::int64_t mask = 0;
};
struct ColourTest {
    CorvexMaterial::Colour colour{};
    double distance = 0.0;  ///< at most, in CIE L*a*b*
};
struct PresenceTest {
    TextProperty property{};
};
struct ThumbnailTest {};
/// A tag or a collection.
struct LabelTest {
    LabelKind kind{};
    std::string label;  ///< without case
    bool isWhole = false;
};
enum class DetailText : std::int32_t { Author, Licence, Source };
struct DetailTest {
    DetailText text{};
    std::string part;  ///< without case
};
enum class MarkProperty : std::int32_t { Favourite, Rating, Used };
/// Of the user who searches.
struct MarkTest {
    MarkProperty property{};
    Comparison comparison{};
    double value = 0.0;
};

using QueryTest = std::variant<NameTest, NumberTest, AttributeTest, TextTest, MaskTest, ColourTest,
                               PresenceTest, ThumbnailTest, LabelTest, DetailTest, MarkTest>;

struct QueryTerm {
    QueryTest test;
    bool isNegated = false;
};

/// Entries that pass all terms. No terms: all entries.
struct LibraryQuery {
    std::vector<QueryTerm> terms;
};

/// A query, or what is wrong with the text, for a person.
using QueryReading = std::variant<LibraryQuery, std::string>;

/// What a user types: words are parts of names, `transparency>30`, `has:bump`, `color~gold`,
/// `plugin:brick`, `field:Supplier=Acme`, `tag:metal`, `fav:yes`; a leading minus negates.
/// docs/libraries.md has it all.
[[nodiscard]] QueryReading ReadLibraryQuery(std::string_view text);

/// How words may begin that are no part of a name, as a user types them: `tag:`, `transparency>`.
[[nodiscard]] std::vector<std::string> QueryBeginnings();
/// A test that finds this very value: `tag="dark wood"`.
[[nodiscard]] std::string QueryTextOf(std::string_view key, std::string_view value);

/// Whether it asks for what was used lately, which is then found latest first.
[[nodiscard]] bool AsksForUsed(const LibraryQuery& query);

}  // namespace studio
