#include "LibraryQuery.h"

#include "QueryWords.h"
#include <CorvexMaterial/NamedColours.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace studio {
namespace {

using CorvexMaterial::AttributeKind;

// Seen side by side, one would still call them by the same name.
constexpr double kNearColours = 30.0;

/// Wrong texts leave the parser as an exception of this type; it does not leave this file.
struct QueryProblem {
    std::string text;
};

[[noreturn]] void RefuseQuery(std::string text)
{
    throw QueryProblem{std::move(text)};
}

double NumberIn(const QueryWord& word)
{
    double number = 0.0;
    const char* end = word.value.data() + word.value.size();
    const auto read = std::from_chars(word.value.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(number)) {
        RefuseQuery(word.key + " needs a number, as in " + word.key + ">30.");
    }
    return number;
}

Comparison ComparisonIn(const QueryWord& word)
{
    struct Row {
        std::string_view text;
        Comparison comparison;
    };
    constexpr std::array kRows{
        Row{"<", Comparison::Less},           Row{"<=", Comparison::LessOrEqual},
        Row{"=", Comparison::Equal},          Row{":", Comparison::Equal},
        Row{"!=", Comparison::NotEqual},      Row{">", Comparison::Greater},
        Row{">=", Comparison::GreaterOrEqual}};
    const auto row = std::ranges::find(kRows, word.operatorText, &Row::text);
    if (row == kRows.end()) {
        RefuseQuery(word.key + " can be compared with <, <=, =, !=, >= and > only.");
    }
    return row->comparison;
}

void NeedOperator(const QueryWord& word, std::string_view allowed, const std::string& example)
{
    if (word.operatorText.size() != 1 || allowed.find(word.operatorText[0]) == std::string::npos) {
        RefuseQuery("Write it like " + example + '.');
    }
    if (word.value.empty()) {
        RefuseQuery(word.key + word.operatorText + " needs a value, as in " + example + '.');
    }
}

QueryTest NumberOf(NumberProperty property, const QueryWord& word)
{
    return NumberTest{property, ComparisonIn(word), NumberIn(word)};
}

QueryTest WidthOf(const QueryWord& word)
{
    return NumberOf(NumberProperty::Width, word);
}

QueryTest HeightOf(const QueryWord& word)
{
    return NumberOf(NumberProperty::Height, word);
}

std::optional<CorvexMaterial::Colour> HexColour(std::string_view text)
{
    std::uint32_t rgb = 0;
    const char* end = text.data() + text.size();
    if (text.size() != 7 || text[0] != '#' ||
        std::from_chars(text.data() + 1, end, rgb, 16).ptr != end) {
        return std::nullopt;
    }
    const int bits = static_cast<int>(rgb);
    return CorvexMaterial::MakeColour({bits >> 16, bits >> 8, bits});
}

CorvexMaterial::Colour ColourIn(const QueryWord& word)
{
    if (const auto hex = HexColour(word.value)) {
        return *hex;
    }
    const std::string name = Folded(word.value);
    const auto& names = CorvexMaterial::kNamedColours;
    const auto row =
        std::ranges::find_if(names, [&](const auto& named) { return Folded(named.name) == name; });
    if (row == names.end()) {
        RefuseQuery('"' + word.value +
                    "\" is no colour; use a name of the colour list or #rrggbb.");
    }
    return row->colour;
}

QueryTest ColourOf(const QueryWord& word)
{
    NeedOperator(word, "~:=", word.key + "~gold");
    return ColourTest{ColourIn(word), word.operatorText == "=" ? 0.0 : kNearColours};
}

QueryTest NameOf(const QueryWord& word)
{
    NeedOperator(word, ":~=", "name:oak");
    return NameTest{Folded(word.value)};
}

QueryTest PluginOf(const QueryWord& word)
{
    NeedOperator(word, ":~=", "plugin:brick");
    return TextTest{TextProperty::Plugin, Folded(word.value)};
}

QueryTest FileOf(const QueryWord& word)
{
    NeedOperator(word, ":~=", "file:oak.png");
    return TextTest{TextProperty::Files, Folded(word.value)};
}

QueryTest FieldOf(const QueryWord& word)
{
    NeedOperator(word, ":", "field:Supplier=Acme");
    const std::size_t equals = word.value.find('=');
    const std::string name = word.value.substr(0, equals);
    if (equals != std::string::npos) {
        return TextTest{TextProperty::Fields, FieldLine(name, word.value.substr(equals + 1))};
    }
    return TextTest{TextProperty::Fields, '\n' + Folded(name) + '='};
}

QueryTest HasOf(const QueryWord& word)
{
    NeedOperator(word, ":", "has:bump");
    const std::string what = Folded(word.value);
    auto layer = std::ranges::find(kSearchLayers, what) - kSearchLayers.begin();
    // The word of a layer may be that of an amount too.
    if (const auto* row = CorvexMaterial::FindAttribute(what);
        row != nullptr && layer == std::ssize(kSearchLayers)) {
        const auto& files = CorvexMaterial::kTextureFiles;
        layer = std::ranges::find(files, row->attribute) - files.begin();
    }
    if (layer < static_cast<std::ptrdiff_t>(kSearchLayers.size())) {
        return MaskTest{NumberProperty::Layers, std::int64_t{1} << layer};
    }
    if (what == "plugin") {
        return PresenceTest{TextProperty::Plugin};
    }
    if (what == "field") {
        return PresenceTest{TextProperty::Fields};
    }
    if (what == "thumbnail") {
        return ThumbnailTest{};
    }
    if (what == "tag") {
        return LabelTest{LabelKind::Tag, {}, false};
    }
    if (what == "collection") {
        return LabelTest{LabelKind::Collection, {}, false};
    }
    RefuseQuery("has: knows texture, overlay, alpha, bump, specular, environment, plugin, field, "
                "thumbnail, tag and collection.");
}

std::optional<NumberProperty> ColumnOf(CorvexMaterial::Attribute attribute)
{
    const auto& attributes = AttributesOfColumns();
    const auto at = std::ranges::find(attributes, attribute);
    return at == attributes.end()
               ? std::nullopt
               : std::optional(static_cast<NumberProperty>(at - attributes.begin()));
}

QueryTest IsOf(const QueryWord& word)
{
    NeedOperator(word, ":", "is:doublesided");
    const std::string what = Folded(word.value);
    if (const auto* row = CorvexMaterial::FindAttribute(what);
        row != nullptr &&
        (row->kind == AttributeKind::Flag || row->kind == AttributeKind::Switch)) {
        if (const auto column = ColumnOf(row->attribute)) {
            return MaskTest{*column, 1};
        }
        return AttributeTest{row->attribute, Comparison::NotEqual, 0.0};
    }
    if (what == "raytraced") {
        return MaskTest{NumberProperty::Raytraced, 1};
    }
    RefuseQuery("is: knows raytraced and what a material is or is not, as doublesided.");
}

template <LabelKind kind>
QueryTest LabelOf(const QueryWord& word)
{
    NeedOperator(word, ":~=", word.key + ":metal");
    return LabelTest{kind, Folded(word.value), word.operatorText == "="};
}

template <DetailText text>
QueryTest DetailOf(const QueryWord& word)
{
    NeedOperator(word, ":~=", word.key + ":\"Ann Lee\"");
    return DetailTest{text, Folded(word.value)};
}

template <MarkProperty property>
QueryTest IsMarked(const QueryWord& word)
{
    const std::string answer = Folded(word.value);
    const bool isNo = answer == "no";
    if (word.operatorText != ":" || !(isNo || answer.empty() || answer == "yes")) {
        RefuseQuery("Write it like " + word.key + ":yes or " + word.key + ":no.");
    }
    return MarkTest{property, isNo ? Comparison::Equal : Comparison::Greater, 0.0};
}

QueryTest RatingOf(const QueryWord& word)
{
    return MarkTest{MarkProperty::Rating, ComparisonIn(word), NumberIn(word)};
}

struct KeyRow {
    std::string_view key;
    QueryTest (*read)(const QueryWord&);
};

constexpr std::array kKeys{
    KeyRow{"name", NameOf},
    KeyRow{"width", WidthOf},
    KeyRow{"height", HeightOf},
    KeyRow{"has", HasOf},
    KeyRow{"is", IsOf},
    KeyRow{"plugin", PluginOf},
    KeyRow{"file", FileOf},
    KeyRow{"field", FieldOf},
    KeyRow{"tag", LabelOf<LabelKind::Tag>},
    KeyRow{"collection", LabelOf<LabelKind::Collection>},
    KeyRow{"author", DetailOf<DetailText::Author>},
    KeyRow{"licence", DetailOf<DetailText::Licence>},
    KeyRow{"license", DetailOf<DetailText::Licence>},
    KeyRow{"source", DetailOf<DetailText::Source>},
    KeyRow{"fav", IsMarked<MarkProperty::Favourite>},
    KeyRow{"rating", RatingOf},
    KeyRow{"recent", IsMarked<MarkProperty::Used>},
};

std::string KnownKeys()
{
    std::string keys;
    const auto add = [&keys](std::string_view key) {
        keys.append(keys.empty() ? "" : ", ").append(key);
    };
    for (std::size_t i = 0; i < AttributesOfColumns().size(); ++i) {
        if (RowOf(AttributesOfColumns().at(i)).kind != AttributeKind::Flag) {
            add(kNumberColumns.at(i));
        }
    }
    for (const KeyRow& row : kKeys) {
        add(row.key);
    }
    return keys;
}

QueryTest TestOf(const QueryWord& word)
{
    if (word.key.empty()) {
        return NameTest{Folded(word.value)};
    }
    if (const auto* row = CorvexMaterial::FindAttribute(word.key); row != nullptr) {
        const auto column = ColumnOf(row->attribute);
        if (column && row->kind == AttributeKind::PackedColour) {
            return ColourOf(word);
        }
        if (column && row->kind != AttributeKind::Flag) {
            return NumberOf(*column, word);
        }
        const bool isNumber = row->kind == AttributeKind::WholeNumber ||
                              row->kind == AttributeKind::ListPosition ||
                              row->kind == AttributeKind::Single;
        if (isNumber && !row->word.empty()) {
            return AttributeTest{row->attribute, ComparisonIn(word), NumberIn(word)};
        }
    }
    const auto row = std::ranges::find(kKeys, word.key, &KeyRow::key);
    if (row == kKeys.end()) {
        RefuseQuery('"' + word.key + "\" cannot be searched for; known are " + KnownKeys() +
                    ", and the other numbers of a material. Put a name with signs in quotes.");
    }
    return row->read(word);
}

}  // namespace

QueryReading ReadLibraryQuery(std::string_view text)
{
    LibraryQuery query;
    try {
        for (const QueryWord& word : QueryWordsOf(text)) {
            query.terms.push_back({TestOf(word), word.isNegated});
        }
    } catch (const QueryProblem& problem) {
        return problem.text;
    }
    return query;
}

std::vector<std::string> QueryBeginnings()
{
    std::vector<std::string> beginnings;
    for (std::size_t i = 0; i < AttributesOfColumns().size(); ++i) {
        const AttributeKind kind = RowOf(AttributesOfColumns().at(i)).kind;
        if (kind != AttributeKind::Flag) {
            beginnings.push_back(std::string(kNumberColumns.at(i)) +
                                 (kind == AttributeKind::PackedColour ? '~' : '>'));
        }
    }
    for (const KeyRow& row : kKeys) {
        const bool isNumber = row.key == "width" || row.key == "height" || row.key == "rating";
        const bool isAnswer = row.key == "fav" || row.key == "recent";
        beginnings.push_back(std::string(row.key) + (isNumber ? ">" : isAnswer ? ":yes" : ":"));
    }
    for (const std::string_view layer : kSearchLayers) {
        beginnings.push_back("has:" + std::string(layer));
    }
    return beginnings;
}

std::string QueryTextOf(std::string_view key, std::string_view value)
{
    std::string text(key);
    text += "=\"";
    std::ranges::remove_copy(value, std::back_inserter(text), '"');
    return text + '"';
}

bool AsksForUsed(const LibraryQuery& query)
{
    return std::ranges::any_of(query.terms, [](const QueryTerm& term) {
        const auto* mark = std::get_if<MarkTest>(&term.test);
        return mark != nullptr && !term.isNegated && mark->property == MarkProperty::Used &&
               mark->comparison == Comparison::Greater;
    });
}

}  // namespace studio
