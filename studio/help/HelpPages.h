#pragma once

#include <QList>
#include <QString>

class QWidget;

namespace studio {

/// One page of the help, in the language of the locale where there is one, else in English.
struct HelpPage {
    QString topic;  ///< the name of its file without the ending
    QString title;  ///< its heading
    QString text;   ///< Markdown
};

/// In the order in which one reads them.
[[nodiscard]] QList<HelpPage> HelpPages();
/// The topic of the widget or of the nearest one that it is in: the dynamic property `helpTopic`.
/// Empty where none has one.
[[nodiscard]] QString HelpTopicOf(const QWidget* widget);

}  // namespace studio
