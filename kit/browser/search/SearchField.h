#pragma once

#include "LibraryQuery.h"

#include <QLineEdit>

#include <functional>
#include <optional>

namespace studio {

class SearchCompleter;

/// Where a user types what to look for in a library. A text that is no query is marked, and the
/// query before it stays.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent);

    /// The text as a user would type it, at the end of what is there.
    void Append(const QString& text);
    /// Asked when the user comes to it: values that the library has, as `tag="oak"`.
    using Words = std::function<QStringList()>;
    void SetWords(Words words) { m_words = std::move(words); }

Q_SIGNALS:
    /// What was typed is no query; the text says why. Empty when it is one again.
    void Refused(const QString& error);
    /// Nothing: all entries.
    void QueryChanged(const std::optional<studio::LibraryQuery>& query);
    /// The user is done with searching and goes on in the browser.
    void Left();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void Read();
    void ShowError(const QString& error);

    SearchCompleter* m_completer;
    Words m_words;
    bool m_hasQuery = false;
};

}  // namespace studio
