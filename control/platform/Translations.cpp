#include <CorvexMaterial/Translations.h>

#include <QCoreApplication>
#include <QTranslator>

namespace CorvexMaterial {
namespace {

bool Install(const QLocale& locale)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    return translator->load(locale, QStringLiteral("corvex"), QStringLiteral("_"),
                            QStringLiteral(":/CorvexMaterial/translations")) &&
           QCoreApplication::installTranslator(translator);
}

}  // namespace

bool InstallTranslations(const QLocale& locale)
{
    // English first: it knows "1 shape" from "2 shapes" where another language has no text.
    Install(QLocale(QLocale::English));
    return locale.language() != QLocale::English && Install(locale);
}

}  // namespace CorvexMaterial
