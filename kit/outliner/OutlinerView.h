#pragma once

#include "LibraryDrag.h"
#include "OutlinerModel.h"

#include <QPersistentModelIndex>
#include <QTreeView>

#include <unordered_set>

namespace studio {

/// The list of an outliner: what is clicked, typed, dragged and dropped there. What is opened
/// stays open when the rows change.
class OutlinerView : public QTreeView {
    Q_OBJECT

public:
    /// The model outlives the view.
    OutlinerView(OutlinerModel& model, QWidget* parent);

    /// The material rows' or shape rows' shapes, each once, in the order of the list.
    [[nodiscard]] ShapeList SelectedShapes() const;
    /// Lets the user type the name of the material at the row.
    void EditName(const QModelIndex& index);

Q_SIGNALS:
    void HiddenWanted(const studio::ShapeList& shapes, bool hidden);
    void LockedWanted(const studio::ShapeList& shapes, bool locked);
    void FrameWanted(const studio::ShapeList& shapes);
    void MenuWanted(const QModelIndex& index, QPoint globalPosition);
    void SearchTyped(const QString& text);
    /// After the drop is over: the shapes get the material that the wearer has, and share it.
    void ShareWanted(const std::shared_ptr<studio::StudioShape>& wearer,
                     const studio::ShapeList& shapes);
    /// The same, of a material from elsewhere.
    void MaterialDropped(const studio::DroppedMaterial& material, const studio::ShapeList& shapes);
    /// For the status line: what a drop here would do.
    void Hint(const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& search) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

private:
    /// What a drop would do.
    struct Drop {
        std::shared_ptr<StudioShape> wearer;    ///< whose material it is about, of the scene
        std::optional<DroppedMaterial> material;  ///< or from elsewhere
        ShapeList shapes;                       ///< that get it; none where nothing can be dropped
        QString name;
    };

    void Toggle(const QModelIndex& index, int column);
    [[nodiscard]] Drop DropAt(const QDropEvent& event) const;
    [[nodiscard]] ShapeList TargetsAt(const QModelIndex& index) const;
    void ShowTarget(const QModelIndex& index);
    void RememberOpened();
    void OpenAgain();

    OutlinerModel& m_model;
    QPersistentModelIndex m_pressed;
    ShapeList m_dragged;  ///< shapes, or the one whose material is dragged
    bool m_dragsMaterial = false;
    QPersistentModelIndex m_target;
    std::unordered_set<const StudioShape*> m_opened;
    int m_scrolled = 0;
};

}  // namespace studio
