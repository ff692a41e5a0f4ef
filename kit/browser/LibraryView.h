#pragma once

#include <QListView>

#include <functional>

namespace studio {

class LibraryDelegate;
class LibraryModel;

/// The entries of a library as thumbnails in rows of one height, as many beside each other as fit.
class LibraryView : public QListView {
    Q_OBJECT

public:
    /// Both outlive the view.
    LibraryView(LibraryModel& model, LibraryDelegate& delegate, int rowHeight, QWidget* parent);

    /// Whether something that is dragged in is taken; else it is the window's around.
    using Takes = std::function<bool(const QDropEvent&)>;
    void SetTakes(Takes takes) { m_takes = std::move(takes); }
    /// Shown in the middle of an empty view.
    void SetEmptyText(const QString& text);
    void SetBackground(const QColor& background);
    /// Marks this row without telling anybody; -1 marks none.
    void Mark(int row);

Q_SIGNALS:
    /// The user clicked the entry or went to it with a key.
    void Chosen(int row);
    /// A double click, or Enter.
    void Opened(int row);
    void DeletePressed();
    void MenuWanted(QPoint globalPosition);
    /// Letters typed over the view.
    void SearchTyped(const QString& text);
    /// The entry is to be dragged away.
    void DragStarted(int row);
    /// A click on its star.
    void StarPressed(int row);
    /// By their keys, of what is selected.
    void Dropped(const QMimeData& data);
    void FavouritePressed();
    void RatingPressed(int rating);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void keyboardSearch(const QString& search) override;

private:
    void ArrangeColumns();
    [[nodiscard]] bool MarksByKey(const QKeyEvent& event);
    void OnClicked(const QModelIndex& index);

    LibraryDelegate& m_delegate;
    int m_rowHeight;
    QString m_emptyText;
    QColor m_background;
    bool m_doubleClicked = false;
    Takes m_takes;
    bool m_isTarget = false;  ///< something over it would be taken
    bool m_extends = false;   ///< the click selects further entries, and chooses none
};

}  // namespace studio
