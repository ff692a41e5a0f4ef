#pragma once

#include "LayerDrag.h"
#include "TouchedRows.h"
#include <CorvexMaterial/MaterialRecord.h>
#include <CorvexMaterial/TextureLayers.h>

#include <QWidget>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ui {
class TexturePage;
}

class QButtonGroup;

namespace CorvexMaterial {

class PlacementPanel;
class TextureThumbnail;
class ThumbnailCache;

/// The option page of the six texture layers, one of them shown at a time, and of how textures lie
/// on a shape. Its widgets are the storage of these attributes. The setters emit nothing and take
/// any value of their type; a list position outside its list is InvalidArgument.
class TexturePage : public QWidget {
    Q_OBJECT

public:
    explicit TexturePage(QWidget* parent);
    ~TexturePage() override;

    [[nodiscard]] const std::string& File(TextureLayer layer) const;
    void SetFile(TextureLayer layer, const std::string& file);
    [[nodiscard]] CorvexDB::TextureFiles Files() const;

    [[nodiscard]] CorvexDB::WrapType Wrap() const;
    void SetWrap(CorvexDB::WrapType wrap);
    [[nodiscard]] CorvexDB::FlatWrapType FlatWrap() const { return m_flatWrap; }
    void SetFlatWrap(CorvexDB::FlatWrapType flatWrap);
    [[nodiscard]] float TilesPerUnit() const { return m_tilesPerUnit; }
    void SetTilesPerUnit(float tiles) { m_tilesPerUnit = tiles; }
    [[nodiscard]] const CorvexDB::TexturePlacement& Placement() const { return m_placement; }
    void SetPlacement(const CorvexDB::TexturePlacement& placement);
    /// A new file of the layer would take its place on the shape anew: crop and tiling, which all
    /// layers share, were made for another primary texture, or for one that nobody sees any more.
    [[nodiscard]] bool BeginsAnew(TextureLayer layer, const std::string& file) const;
    /// Back to the whole image, once per unit. Gives what was otherwise.
    [[nodiscard]] TouchedRows ForgetPlacement();

    /// The numbers of where, how large and how turned.
    [[nodiscard]] PlacementPanel& Placing() const { return *m_placing; }

    /// Position 0 to 4 in `cboTextureAlphaChannelUse`.
    [[nodiscard]] int AlphaChannelUse() const;
    void SetAlphaChannelUse(int position);
    [[nodiscard]] static int AlphaChannelUseCount();
    [[nodiscard]] bool FlipU() const;
    void SetFlipU(bool flip);
    [[nodiscard]] bool FlipV() const;
    void SetFlipV(bool flip);
    /// The last whole number that the text was.
    [[nodiscard]] std::int32_t OverlayTranslucency() const;
    /// As typed; need not be a number.
    [[nodiscard]] std::string OverlayTranslucencyText() const;
    void SetOverlayTranslucencyText(const std::string& text);

    /// What opens the dialogs of the placement.
    [[nodiscard]] QWidget& CropButton() const;
    [[nodiscard]] QWidget& FlatWrapButton() const;

    /// What shows the attribute, or opens what does; none where another page does.
    [[nodiscard]] std::vector<QWidget*> ControlsOf(Attribute attribute) const;
    /// Shows the fields that only some layers have; none for no layer.
    void ShowFields(std::optional<TextureLayer> layer);
    /// Hides every thumbnail but the layer's.
    void ShowThumbnail(std::optional<TextureLayer> layer);
    /// Looks again at the file of the thumbnail on show.
    void RefreshThumbnail();
    /// Reads every thumbnail anew.
    void RebuildThumbnails();
    /// Whether the layer may get another file.
    [[nodiscard]] bool IsEnabled(TextureLayer layer) const;
    /// Lets the layer be dragged from the widget.
    void DragLayerFrom(TextureLayer layer, QWidget& widget);
    /// The thumbnails and the buttons that choose and delete.
    void SetLayersEnabled(bool enabled);
    /// The same for the primary layer alone.
    void SetPrimaryLocked(bool locked);

Q_SIGNALS:
    void Edited(const CorvexMaterial::TouchedRows& touched);
    /// Any layer's file, by program too.
    void FilesChanged();
    void SelectPressed();
    void CropPressed();
    void DeletePressed();
    void FlatWrapOptionsWanted();
    void FileDropped(const QString& file);
    /// On the thumbnail of another layer.
    void LayerDropped(CorvexMaterial::TextureLayer from, CorvexMaterial::TextureLayer to,
                      CorvexMaterial::Transfer transfer);

private:
    void AddThumbnails();
    void AddWraps();
    void ConnectFields();
    void ConnectButtons();
    void ShowFileName();
    void UpdateEnabled();
    [[nodiscard]] TextureThumbnail& Thumbnail(TextureLayer layer) const;
    template <typename Change>
    void Quietly(Change&& change);
    void EmitEdited(const TouchedRows& touched);

    std::unique_ptr<Ui::TexturePage> m_ui;
    std::unique_ptr<ThumbnailCache> m_cache;
    std::array<TextureThumbnail*, kTextureLayerCount> m_thumbnails{};
    QButtonGroup* m_wraps = nullptr;
    PlacementPanel* m_placing;
    std::optional<TextureLayer> m_shown;
    CorvexDB::FlatWrapType m_flatWrap = CorvexDB::FlatWrapType::TileByUnit;
    float m_tilesPerUnit = 1.0F;
    CorvexDB::TexturePlacement m_placement;
    bool m_layersEnabled = true;
    bool m_primaryLocked = false;
    bool m_quiet = false;
};

}  // namespace CorvexMaterial
