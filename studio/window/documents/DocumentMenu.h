#pragma once

#include <QObject>

#include <functional>

class QAction;
class QMainWindow;
class QMenu;

namespace studio {

class OpenDocument;
class WindowMessages;

/// How a user saves the document and is kept from losing it: menu entries, the name in the window's
/// title, the questions.
class DocumentMenu : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        OpenDocument& document;
        WindowMessages& messages;
        QMainWindow& window;
    };

    explicit DocumentMenu(const Parts& parts);

    void AddTo(QMenu& menu);
    /// Shows the document of this file once the user agrees to what becomes of the one that is
    /// open; `Opened` or `Refused` follows unless he does not.
    void Open(const QString& file);
    /// Whether it was saved.
    bool Save();
    bool SaveAs();
    /// Whether another scene may take the document's place: it is as it was saved, was saved now,
    /// or the user will do without his changes.
    [[nodiscard]] bool MayGo();

Q_SIGNALS:
    void Opened(const QString& file, const QStringList& problems);
    /// The message has been shown to the user. No file when he cancelled it himself.
    void Refused(const QString& file, const QString& message);
    void Saved(const QString& file);

private:
    void SaveCopy();
    void Revert();
    void Read(const QString& file);
    [[nodiscard]] bool Saving(const std::function<void()>& write);
    [[nodiscard]] QString ChooseFile(const QString& title);
    void ShowMark();

    Parts m_parts;
    QAction* m_revert = nullptr;
};

}  // namespace studio
