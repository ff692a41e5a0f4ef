#pragma once

#include <QObject>
#include <QPointer>

class QMainWindow;
class QMenu;

namespace studio {

class HelpWindow;

/// F1 in any window of the program opens the page of what has the keyboard, or of what is under the
/// pointer; the menu opens the help and the sheet of keys.
class HelpDesk : public QObject {
    Q_OBJECT

public:
    explicit HelpDesk(QMainWindow& window);

    void AddTo(QMenu& menu);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open(const QString& topic);
    void ShowKeys();

    QMainWindow& m_window;
    QPointer<HelpWindow> m_help;
};

}  // namespace studio
