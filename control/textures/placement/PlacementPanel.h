#pragma once

#include "TouchedRows.h"

#include <QWidget>

#include <array>
#include <string>

class QGridLayout;
class QPushButton;

namespace CorvexMaterial {

class UpDownText;

/// Where the projection of a wrap stands, how large a tile is and how it is turned: a button that
/// asks for handles in the view, and below it the numbers, folded away while all of them rest.
class PlacementPanel : public QWidget {
    Q_OBJECT

public:
    static constexpr Attribute kFirst = Attribute::TextureRotation;
    static constexpr std::size_t kFieldCount =
        static_cast<std::size_t>(Attribute::ProjectionTurnZ) - static_cast<std::size_t>(kFirst) + 1;

    explicit PlacementPanel(QWidget* parent);

    [[nodiscard]] static bool Has(Attribute attribute);
    /// The last number that the attribute's field held.
    [[nodiscard]] const std::string& Text(Attribute attribute) const;
    void Show(Attribute attribute, const std::string& text);
    [[nodiscard]] QWidget* FieldOf(Attribute attribute) const;

    /// Presses or releases the button; tells nobody.
    void ShowHandles(bool shown);

Q_SIGNALS:
    void Edited(const CorvexMaterial::TouchedRows& touched);
    void HandlesToggled(bool shown);

private:
    struct Line;

    void AddLine(QGridLayout& grid, const Line& line);
    void Take(Attribute attribute);
    void Reset();
    void Fold();

    QPushButton* m_handles;
    QPushButton* m_reset;
    QWidget* m_numbers;
    std::array<UpDownText*, kFieldCount> m_fields{};
    std::array<std::string, kFieldCount> m_texts;
};

}  // namespace CorvexMaterial
