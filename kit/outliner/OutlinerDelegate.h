#pragma once

#include <QStyledItemDelegate>

namespace studio {

class OutlinerModel;

/// Draws the swatch of a material beside its name, and the eye and the lock of a row.
class OutlinerDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    OutlinerDelegate(const OutlinerModel& model, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void PaintLink(QPainter& painter, const QStyleOptionViewItem& option,
                   const QModelIndex& index) const;

    const OutlinerModel& m_model;
};

}  // namespace studio
