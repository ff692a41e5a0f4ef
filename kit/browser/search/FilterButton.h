#pragma once

#include "LibraryFile.h"

#include <QToolButton>

#include <functional>

class QMenu;

namespace studio {

/// Offers what is often searched for: favourites, what was used lately, ratings, the collections
/// and the tags of the library. A choice is a search as one could type it.
class FilterButton : public QToolButton {
    Q_OBJECT

public:
    /// Null while no library is open.
    using Library = std::function<LibraryFile*()>;

    FilterButton(Library library, QWidget* parent);

    /// What is searched for now; its entry is ticked.
    void SetCurrent(const QString& query);

Q_SIGNALS:
    /// Empty for everything.
    void Chosen(const QString& query);

private:
    void Fill();
    void Add(QMenu& menu, const QString& text, const QString& query);
    void AddLabels(const QString& title, const std::string& key,
                   const std::vector<LabelUse>& labels);

    Library m_library;
    QMenu* m_menu;
    QString m_current;
};

}  // namespace studio
