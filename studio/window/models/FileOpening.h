#pragma once

#include "LibrarySchema.h"
#include "RecentFiles.h"

#include <QObject>

class QMenu;
class QUrl;
class QWidget;

namespace studio {

/// How a user names a file that is to be opened: in a dialog, in the list of those opened last, by
/// dropping it, on the command line. What it holds is told by its name.
class FileOpening : public QObject {
    Q_OBJECT

public:
    /// Settings and window outlive this object.
    FileOpening(StudioSettings& settings, QWidget& window);

    void AddTo(QMenu& menu);
    /// Files that are dropped there are opened.
    void AcceptDropsOn(QWidget& widget);
    /// A path or the address of a local file.
    void Open(const QString& file);

    void Remember(const QString& file) { m_recent.Add(file); }
    void Forget(const QString& file) { m_recent.Remove(file); }
    /// Of the file opened last; empty when there is none.
    [[nodiscard]] QString Folder() const;

Q_SIGNALS:
    void DocumentWanted(const QString& file);
    void ModelWanted(const QString& file);
    void LibraryWanted(const QString& file, studio::LibraryKind kind);
    /// Materials of other programs.
    void MaterialsWanted(const QString& file);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ChooseFile();
    void ListRecentFiles(QMenu* menu);

    RecentFiles m_recent;
    QWidget& m_window;
};

}  // namespace studio
