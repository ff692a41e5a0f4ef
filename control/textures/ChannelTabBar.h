#pragma once

#include "LayerDrag.h"

#include <QTabBar>

class QStylePainter;

namespace CorvexMaterial {

/// Tabs of one width, a sign on each, that share the bar's width however narrow it is. Takes
/// image files dropped on a tab, and textures dragged from one layer's tab to another's. Tabs count
/// from 1.
class ChannelTabBar : public QTabBar {
    Q_OBJECT

public:
    explicit ChannelTabBar(QWidget* parent);

    /// Marks a tab whose layer has a texture.
    void SetUsed(int tab, bool used);
    /// Only tabs of this range take files.
    void SetFileTabs(int first, int last);
    /// The panel whose layers the tabs take.
    void SetLayerPanel(const QWidget& panel) { m_panel = &panel; }

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void FileDropped(int tab, const QString& file);
    void LayerDropped(int tab, CorvexMaterial::TextureLayer from,
                      CorvexMaterial::Transfer transfer);
    /// A tab that is used is drawn away from the bar.
    void LayerDragged(int tab);

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void PaintTab(QStylePainter& painter, int index) const;
    [[nodiscard]] bool TakesFiles(int tab) const;
    /// From another tab than this one.
    [[nodiscard]] std::optional<TextureLayer> LayerFor(int tab, const QDropEvent& event) const;
    void ShowDropOn(int tab);

    const QWidget* m_panel = nullptr;
    QPoint m_pressed;
    int m_firstFileTab = 0;
    int m_lastFileTab = -1;
    int m_dropTab = 0;  ///< that would take what is over it; 0: none
};

}  // namespace CorvexMaterial
