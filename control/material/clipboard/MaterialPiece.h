#pragma once

#include "TouchedRows.h"
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/TextureLayers.h>

#include <QString>

namespace CorvexMaterial {

/// What of a material is copied, pasted and reset in one go.
struct MaterialPiece {
    enum class Kind : std::uint8_t { Value, Layer, Group, Whole };

    Kind kind = Kind::Whole;
    TouchedRows rows;
    QString title;  ///< for a person
};

[[nodiscard]] MaterialPiece PieceOf(const TouchedRow& value);
/// Its file, and what only this layer has beside it.
[[nodiscard]] MaterialPiece PieceOf(TextureLayer layer);
[[nodiscard]] MaterialPiece PieceOf(AttributeGroup group);
[[nodiscard]] MaterialPiece WholeMaterial();
/// The whole where there are none.
[[nodiscard]] MaterialPiece PieceOf(const std::vector<Attribute>& attributes);

/// The pieces around it, the smallest first, itself among them. Rows that one control stands for
/// are the smallest.
[[nodiscard]] std::vector<MaterialPiece> PiecesAround(const TouchedRows& rows);

}  // namespace CorvexMaterial
