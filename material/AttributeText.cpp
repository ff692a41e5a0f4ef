#include "material/AttributeText.h"

#include "host/Colour.h"

namespace CorvexMaterial {

namespace {

template <typename Value, typename Format>
std::optional<std::string> Formatted(const std::optional<Value>& value, Format format)
{
    return value ? std::optional(format(*value)) : std::nullopt;
}

std::optional<std::string> PositionText(std::string_view text, std::int32_t listSize)
{
    const std::optional<std::int32_t> position = WholeNumberFromText(text);
    const bool isInList = position && *position >= 0 && *position < listSize;
    return isInList ? std::optional(TextOfWholeNumber(*position)) : std::nullopt;
}

std::string ColourText(Colour colour)
{
    return TextOfWholeNumber(MakeColour(BytesOf(colour)));
}

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
        return PositionText(text, row.listSize);
    case AttributeKind::Flag:
        return Formatted(FlagFromText(text), TextOfFlag);
    case AttributeKind::Single:
        return Formatted(SingleFromText(text), TextOfSingle);
    case AttributeKind::PackedColour:
        return Formatted(WholeNumberFromText(text), ColourText);
    case AttributeKind::Group:
        break;
    }
    return std::nullopt;
}

}  // namespace CorvexMaterial
