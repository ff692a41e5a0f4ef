#include "SearchCompleter.h"

#include <QStringListModel>

namespace studio {
namespace {

/// Where the last word begins; quotes hide blanks.
qsizetype LastWord(const QString& text)
{
    qsizetype begin = 0;
    bool isQuoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        isQuoted = isQuoted != (text[i] == u'"');
        if (!isQuoted && text[i].isSpace()) {
            begin = i + 1;
        }
    }
    // A minus turns a test around.
    return begin < text.size() && text[begin] == u'-' ? begin + 1 : begin;
}

}  // namespace

const SearchCompleter::Words SearchCompleter::kOfSearch{LastWord, 2};

SearchCompleter::SearchCompleter(QObject* parent, Words words)
    : QCompleter(parent), m_kind(words), m_words(new QStringListModel(this))
{
    setModel(m_words);
    setCaseSensitivity(Qt::CaseInsensitive);
    setMaxVisibleItems(10);
}

void SearchCompleter::SetWords(const QStringList& words)
{
    m_words->setStringList(words);
}

QStringList SearchCompleter::splitPath(const QString& text) const
{
    const qsizetype begin = m_kind.last(text);
    m_before = text.first(begin);
    const QString word = text.sliced(begin);
    // Nothing begins with a blank.
    return {word.size() < m_kind.leastLetters ? QStringLiteral(" ") : word};
}

QString SearchCompleter::pathFromIndex(const QModelIndex& index) const
{
    return m_before + QCompleter::pathFromIndex(index);
}

}  // namespace studio
