#pragma once

#include <QCompleter>

class QStringListModel;

namespace studio {

/// Completes the last word of a text from words that may stand there: what comes before it stays.
class SearchCompleter : public QCompleter {
    Q_OBJECT

public:
    struct Words {
        qsizetype (*last)(const QString& text);  ///< where the last one begins
        qsizetype leastLetters;                  ///< before anything is proposed
    };
    /// Those of a search, with blanks between them.
    static const Words kOfSearch;

    explicit SearchCompleter(QObject* parent, Words words = kOfSearch);

    void SetWords(const QStringList& words);

    [[nodiscard]] QStringList splitPath(const QString& text) const override;
    [[nodiscard]] QString pathFromIndex(const QModelIndex& index) const override;

private:
    Words m_kind;
    QStringListModel* m_words;
    mutable QString m_before;
};

}  // namespace studio
