#include "MaterialPiece.h"

#include <QCoreApplication>

#include <algorithm>

namespace CorvexMaterial {

namespace {

using enum Attribute;
using Kind = MaterialPiece::Kind;

QString Translated(const char* text)
{
    return QCoreApplication::translate("Attribute", text);
}

std::vector<Attribute> AttributesOf(TextureLayer layer)
{
    switch (layer) {
    case TextureLayer::Primary:
        return {FileOf(layer), TextureAlphaChannelUse, AlphaIsTransparent};
    case TextureLayer::Overlay:
        return {FileOf(layer), OverlayTranslucency};
    default:
        return {FileOf(layer)};
    }
}

/// The layer whose file it is, or that alone has it.
const TextureLayerRow* LayerWith(Attribute attribute)
{
    const auto* const found = std::ranges::find_if(kTextureLayers, [&](const auto& row) {
        const auto attributes = AttributesOf(row.layer);
        return std::ranges::find(attributes, attribute) != attributes.end();
    });
    return found == kTextureLayers.end() ? nullptr : found;
}

}  // namespace

MaterialPiece PieceOf(const TouchedRow& value)
{
    return {Kind::Value, {value}, Translated(RowOf(value.attribute).label)};
}

MaterialPiece PieceOf(TextureLayer layer)
{
    return {Kind::Layer, RowsOf(AttributesOf(layer)), Translated(RowOf(FileOf(layer)).label)};
}

MaterialPiece PieceOf(AttributeGroup group)
{
    return {Kind::Group, RowsOf(group), Translated(TitleOf(group))};
}

MaterialPiece WholeMaterial()
{
    return {Kind::Whole, RowsOfMaterial(), Translated("Material")};
}

MaterialPiece PieceOf(const std::vector<Attribute>& attributes)
{
    if (attributes.empty()) {
        return WholeMaterial();
    }
    return attributes.size() == 1
               ? PieceOf(TouchedRow{attributes.front()})
               : MaterialPiece{Kind::Group, RowsOf(attributes), WholeMaterial().title};
}

std::vector<MaterialPiece> PiecesAround(const TouchedRows& rows)
{
    std::vector<MaterialPiece> pieces;
    if (!rows.empty()) {
        const Attribute first = rows.front().attribute;
        const auto* const layer = LayerWith(first);
        const bool isFile = layer != nullptr && FileOf(layer->layer) == first;
        if (rows.size() == 1 && !isFile) {
            pieces.push_back(PieceOf(rows.front()));
        } else if (!isFile) {
            pieces.push_back({Kind::Group, rows, Translated(RowOf(first).label)});
        }
        if (layer != nullptr) {
            pieces.push_back(PieceOf(layer->layer));
        }
        MaterialPiece group = PieceOf(RowOf(first).group);
        if (pieces.empty() || pieces.back().rows != group.rows) {
            pieces.push_back(std::move(group));
        } else {
            pieces.back() = std::move(group);  // a control for all of it
        }
    }
    pieces.push_back(WholeMaterial());
    return pieces;
}

}  // namespace CorvexMaterial
