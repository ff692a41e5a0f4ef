#pragma once

#include <QLocale>

#include <clocale>
#include <locale>

namespace CorvexTest {

/// While it lives, numbers have decimal commas and grouping dots: in Qt, in the standard streams
/// and, where the system has such a locale, in the C library.
class CommaLocale {
public:
    CommaLocale() : m_streams(std::locale::global(std::locale(std::locale(), new Commas)))
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    }
    ~CommaLocale()
    {
        std::locale::global(m_streams);
        std::setlocale(LC_NUMERIC, "C");
        QLocale::setDefault(m_qt);
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    struct Commas : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_streams;
    QLocale m_qt;
};

}  // namespace CorvexTest
