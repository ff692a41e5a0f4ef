#pragma once

#include "EntryMarks.h"

#include <QStyledItemDelegate>

namespace studio {

class LibraryModel;

/// Paints an entry: its thumbnail with the name below, shortened where it is too long.
class LibraryDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    LibraryDelegate(const LibraryModel& model, QObject* parent);

    void SetBackground(const QColor& background) { m_background = background; }
    void SetCell(QSize cell) { m_cell = cell; }

    /// Where a click makes the entry in this cell a favourite, or no more one.
    [[nodiscard]] static QRect StarArea(const QRect& cell);

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return m_cell;
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    void PaintGround(QPainter& painter, const QStyleOptionViewItem& option) const;
    void PaintThumbnail(QPainter& painter, const QRect& area, int row) const;
    void PaintMarks(QPainter& painter, const QStyleOptionViewItem& option,
                    const EntryMark& mark) const;

    const LibraryModel& m_model;
    QColor m_background;
    QSize m_cell;
};

}  // namespace studio
