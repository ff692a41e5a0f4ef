#pragma once

#include "EditJournal.h"
#include "LeftJournal.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

class QMainWindow;
class QMenu;
class QUndoStack;

namespace studio {

class OpenDocument;
class ScenePane;
class StudioHost;
class WindowMessages;

/// Keeps what the user edits in a journal until it is saved, and brings back what programs that
/// ended before could not save.
class WorkRecovery : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        QUndoStack& history;
        OpenDocument& document;
        QMainWindow& window;
    };

    explicit WorkRecovery(const Parts& parts);

    void AddTo(QMenu& menu);
    /// Shows the dialog if there is something to recover; looks again a little later while another
    /// program still holds some of it.
    void Offer(int looks = 3);
    /// The next start offers what is not saved.
    void Leave();

    /// The base that was wanted is open, or could not be opened.
    void TakeUp(const QString& file);
    void GiveUp() { m_wanted.reset(); }

Q_SIGNALS:
    /// The file of a base, empty for the scene that the studio starts with; `TakeUp` or `GiveUp`
    /// follows.
    void BaseWanted(const QString& file);

private:
    [[nodiscard]] JournalBase Base() const;
    [[nodiscard]] JournalAround Around() const;
    void Begin();
    void Record(const QString& what, int edits = 1);
    void ShowDialog(LeftJournals journals);
    void Open(LeftJournal journal);
    void TellOf(const LeftJournal& journal, const std::vector<std::string>& problems);

    Parts m_parts;
    EditJournal m_journal;
    QTimer m_picture;
    std::optional<LeftJournal> m_wanted;
    QString m_wantedFile;
};

}  // namespace studio
