#include "HelpPages.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QVariant>
#include <QWidget>

namespace studio {
namespace {

QString ReadPage(const QString& language, const QString& name)
{
    QFile file(QStringLiteral(":/help/%1/%2").arg(language, name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

QList<HelpPage> HelpPages()
{
    const QString language = QLocale().name().section(u'_', 0, 0);
    QList<HelpPage> pages;
    // The first line of the contents is a topic, and so is each after it.
    const QStringList topics = ReadPage(QStringLiteral("en"), QStringLiteral("contents.md"))
                                   .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& topic : topics) {
        const QString name = topic + QStringLiteral(".md");
        QString text = ReadPage(language, name);
        if (text.isEmpty()) {
            text = ReadPage(QStringLiteral("en"), name);
        }
        pages.append({topic, text.section(u'\n', 0, 0).mid(2), text});
    }
    return pages;
}

QString HelpTopicOf(const QWidget* widget)
{
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const QString topic = widget->property("helpTopic").toString();
        if (!topic.isEmpty()) {
            return topic;
        }
    }
    return {};
}

}  // namespace studio
