#pragma once

#include <QTabBar>

class QStylePainter;

namespace CorvexMaterial {

/// Tabs of one width, a sign on each, that share the bar's width however narrow it is. Takes
/// image files dropped on a tab. Tabs count from 1.
class ChannelTabBar : public QTabBar {
    Q_OBJECT

public:
    explicit ChannelTabBar(QWidget* parent);

    /// Marks a tab whose layer has a texture.
    void SetUsed(int tab, bool used);
    /// Only tabs of this range take files.
    void SetFileTabs(int first, int last);

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void FileDropped(int tab, const QString& file);

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void PaintTab(QStylePainter& painter, int index) const;
    [[nodiscard]] bool TakesFiles(int tab) const;

    int m_firstFileTab = 0;
    int m_lastFileTab = -1;
};

}  // namespace CorvexMaterial
