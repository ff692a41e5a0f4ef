#pragma once

#include <QLabel>

namespace studio {

/// Where a material is dropped that is to go into a library which is not shown: lies over the
/// bottom of a browser while one of the scene's materials is dragged out of it.
class DropShelf : public QLabel {
    Q_OBJECT

public:
    explicit DropShelf(QWidget* browser);

    /// Of the library that it goes into.
    void Offer(const QString& library);

Q_SIGNALS:
    void Dropped();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Light(bool isOver);
};

}  // namespace studio
