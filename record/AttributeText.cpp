#include <CorvexMaterial/AttributeText.h>

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/NumberText.h>

namespace CorvexMaterial {

namespace {

template <typename Value, typename Format>
std::optional<std::string> Formatted(const std::optional<Value>& value, Format format)
{
    return value ? std::optional(format(*value)) : std::nullopt;
}

std::optional<std::string> PositionText(std::string_view text, NumberRange range)
{
    const std::optional<std::int32_t> position = WholeNumberFromText(text);
    const bool isInList = position && *position >= range.least && *position <= range.most;
    return isInList ? std::optional(TextOfWholeNumber(*position)) : std::nullopt;
}

std::string ColourText(Colour colour)
{
    return TextOfWholeNumber(MakeColour(BytesOf(colour)));
}

std::string SwitchText(bool isOn)
{
    return TextOfWholeNumber(isOn ? 1 : 0);
}

/// Text to value, by the type of the value.
class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text) {}

    std::optional<AttributeValue> operator()(std::int32_t) const
    {
        return WholeNumberFromText(m_text);
    }
    std::optional<AttributeValue> operator()(float) const { return SingleFromText(m_text); }
    std::optional<AttributeValue> operator()(bool) const { return FlagFromText(m_text); }
    std::optional<AttributeValue> operator()(const std::string&) const
    {
        return std::string(m_text);
    }
    template <typename Several>
    std::optional<AttributeValue> operator()(const Several&) const
    {
        return std::nullopt;
    }

private:
    std::string_view m_text;
};

}  // namespace

std::optional<std::string> CanonicalText(Attribute attribute, std::string_view text)
{
    const AttributeRow& row = RowOf(attribute);
    switch (row.kind) {
    case AttributeKind::Text:
        return std::string(text);
    case AttributeKind::WholeNumber:
        return Formatted(WholeNumberFromText(text), TextOfWholeNumber);
    case AttributeKind::ListPosition:
        return PositionText(text, row.range);
    case AttributeKind::Flag:
        return Formatted(FlagFromText(text), TextOfFlag);
    case AttributeKind::Switch:
        return Formatted(FlagFromText(text), SwitchText);
    case AttributeKind::Single:
        return Formatted(SingleFromText(text), TextOfSingle);
    case AttributeKind::PackedColour:
        return Formatted(WholeNumberFromText(text), ColourText);
    case AttributeKind::Numbers:
    case AttributeKind::Texts:
        break;
    }
    return std::nullopt;
}

std::optional<std::string> TextIn(const CorvexDB::udtMaterial& record, Attribute attribute)
{
    const AttributeRow& row = RowOf(attribute);
    const AttributeValue value = row.path.get(record);
    if (const auto* whole = std::get_if<std::int32_t>(&value)) {
        return TextOfWholeNumber(*whole);
    }
    if (const auto* single = std::get_if<float>(&value)) {
        return row.kind == AttributeKind::WholeNumber
                   ? Formatted(RoundedIfFits(*single), TextOfWholeNumber)
                   : TextOfSingle(*single);
    }
    if (const auto* flag = std::get_if<bool>(&value)) {
        return row.kind == AttributeKind::Switch ? SwitchText(*flag) : TextOfFlag(*flag);
    }
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

bool SetText(CorvexDB::udtMaterial& record, Attribute attribute, std::string_view text)
{
    const RecordPath& path = RowOf(attribute).path;
    const auto value = std::visit(Reader(text), path.get(record));
    if (value) {
        path.set(record, *value);
    }
    return value.has_value();
}

}  // namespace CorvexMaterial
