#pragma once

#include <QDialog>

class QMainWindow;
class QTreeWidget;

namespace studio {

/// Every action of the window's menus that has a key, by menu, and what its view says of keys and
/// mouse.
class KeySheet : public QDialog {
    Q_OBJECT

public:
    explicit KeySheet(QMainWindow& window);

private:
    void AddMenu(const QMenu& menu, const QString& title);
    void Filter(const QString& words);

    QTreeWidget* m_keys;
};

}  // namespace studio
