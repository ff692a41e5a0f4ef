#include "EveryWindow.h"

#include "StudioStyle.h"
#include "ThemeColours.h"
#include <CorvexMaterial/LegibleColours.h>

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

namespace {

using CorvexMaterial::Contrast;
using CorvexMaterial::kReadContrast;
using CorvexMaterial::kSeenContrast;
using studio::Theme;
using StudioTest::Described;

TEST(Looks, EveryThemeCanBeReadAndItsEdgesSeen)
{
    ASSERT_NEAR(Contrast(QColor("#767676"), Qt::white), 4.54, 0.01) << "of the recommendation";
    for (const Theme theme : {Theme::Light, Theme::Dark, Theme::HighContrast}) {
        const studio::ThemeColours& colours = studio::ColoursOf(theme);
        const QPalette palette = studio::PaletteOf(theme);
        const QColor edge = CorvexMaterial::EdgeOf(palette);
        const auto expect = [theme](const QColor& ink, QRgb ground, double contrast) {
            EXPECT_GE(Contrast(ink, QColor(ground)), contrast)
                << "theme " << static_cast<int>(theme) << ": " << ink.name().toStdString() << " on "
                << QColor(ground).name().toStdString();
        };
        for (const QRgb ground : {colours.window, colours.field, colours.button, colours.bar,
                                  colours.band, colours.tip, colours.pointed}) {
            expect(colours.text, ground, kReadContrast);
        }
        for (const QRgb ground : {colours.window, colours.field}) {
            expect(colours.hint, ground, kReadContrast);
            expect(CorvexMaterial::ErrorOn(QColor(ground)), ground, kReadContrast);
            expect(colours.accent, ground, kSeenContrast);  // what has the focus
        }
        for (const QRgb ground : {colours.window, colours.field, colours.button, colours.band}) {
            expect(edge, ground, kSeenContrast);
        }
        expect(colours.quiet, colours.bar, kReadContrast);
        expect(colours.quiet, colours.band, kReadContrast);
        expect(colours.onAccent, colours.accent, kReadContrast);
        EXPECT_FALSE(studio::SheetOf(theme).contains('@')) << "a colour without a name";
    }
}

/// What is wrong with each window, each complaint once.
class Complaints {
public:
    void Add(const QWidget& widget, const char* what)
    {
        m_lines.insert(Described(widget) + ": " + what);
    }
    [[nodiscard]] std::string Text() const
    {
        std::string text;
        for (const std::string& line : m_lines) {
            text += line + '\n';
        }
        return text;
    }

private:
    std::set<std::string> m_lines;
};

QList<QWidget*> VisibleIn(const QWidget& window)
{
    QList<QWidget*> visible;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == &window) {
            visible << widget;
        }
    }
    return visible;
}

/// Of what the keyboard or a press reaches: a name, a role, and a value where one is set.
void ExpectAccessible(const QWidget& window, Complaints& complaints)
{
    for (QWidget* widget : VisibleIn(window)) {
        const bool isReached = (widget->focusPolicy() & Qt::TabFocus) != 0 ||
                               qobject_cast<QAbstractButton*>(widget) != nullptr ||
                               qobject_cast<QComboBox*>(widget) != nullptr;
        const bool isPart = widget->focusProxy() != nullptr ||
                            qobject_cast<QScrollBar*>(widget) != nullptr ||
                            widget->objectName().startsWith(QLatin1String("qt_"));
        if (!isReached || isPart) {
            continue;
        }
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
        if (face->text(QAccessible::Name).isEmpty()) {
            complaints.Add(*widget, "has no name");
        }
        const bool holdsOthers = qobject_cast<QScrollArea*>(widget) != nullptr;
        if (face->role() == QAccessible::NoRole ||
            (face->role() == QAccessible::Client && !holdsOthers)) {
            complaints.Add(*widget, "has no role");
        }
        const bool isNumber = qobject_cast<QAbstractSlider*>(widget) != nullptr ||
                              qobject_cast<QAbstractSpinBox*>(widget) != nullptr;
        if (isNumber && face->valueInterface() == nullptr) {
            complaints.Add(*widget, "has no value");
        }
    }
}

QString MnemonicOf(const QString& text)
{
    return QKeySequence::mnemonic(text).toString();
}

/// Each letter once. With more captions than letters some go without, but only those whose letters
/// are all taken.
void ExpectMnemonics(const QWidget& window, Complaints& complaints)
{
    QMap<QString, int> letters;
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
        for (const QAction* menu : bar->actions()) {
            ++letters[MnemonicOf(menu->text())];
        }
    }
    QSet<const QWidget*> named;
    QList<const QWidget*> without;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        named << label->buddy();
    }
    for (const QWidget* widget : VisibleIn(window)) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const auto* push = qobject_cast<const QPushButton*>(widget);
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool hasKey =  // Return or Escape
            push != nullptr && (push->isDefault() || push->text() == QLatin1String("Cancel"));
        const QString text = button != nullptr                               ? button->text()
                             : label != nullptr && label->buddy() != nullptr ? label->text()
                                                                             : QString();
        const bool isCaption = std::ranges::any_of(text, [](QChar c) { return c.isLetter(); });
        if (!isCaption || hasKey || named.contains(widget) ||
            widget->inherits("CorvexMaterial::ElidedLabel")) {
            continue;
        }
        const QString letter = MnemonicOf(text);
        if (letter.isEmpty()) {
            without << widget;
        } else if (++letters[letter] > 1) {
            complaints.Add(*widget, "shares its letter");
        }
    }
    for (const QWidget* widget : without) {
        for (const QChar letter : widget->property("text").toString().toUpper()) {
            if (letter.isLetter() && !letters.contains(MnemonicOf(QStringLiteral("&") + letter))) {
                complaints.Add(*widget, "has no letter to press");
            }
        }
    }
}

/// Whether all of the widget's text is inside of it, and the widget inside of what holds it.
void ExpectWhole(const QWidget& window, Complaints& complaints)
{
    for (const QWidget* widget : VisibleIn(window)) {
        const QFontMetrics metrics(widget->font());
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        const auto* list = qobject_cast<const QComboBox*>(widget);
        const bool elides = widget->inherits("CorvexMaterial::ElidedLabel");
        const QSize inside = widget->contentsRect().size();
        if (label != nullptr && !label->text().isEmpty()) {
            const QSize least = label->wordWrap()
                                    ? QSize(0, label->heightForWidth(label->width()))
                                    : metrics.size(Qt::TextShowMnemonic, label->text());
            if (least.height() > inside.height() + 1 ||
                (!elides && least.width() > inside.width())) {
                complaints.Add(*widget, "is cut");
            }
        } else if (button != nullptr && !button->text().isEmpty()) {
            const auto* tool = qobject_cast<const QToolButton*>(button);
            const bool isUnder =
                tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonTextUnderIcon;
            const int icon =
                button->icon().isNull() || isUnder ? 0 : button->iconSize().width() + 4;
            const QSize least = metrics.size(Qt::TextShowMnemonic, button->text());
            if (least.width() + icon > inside.width() || least.height() > inside.height()) {
                complaints.Add(*widget, "is cut");
            }
        } else if (field != nullptr || list != nullptr) {
            const QString text = field != nullptr && field->echoMode() == QLineEdit::Normal &&
                                         field->alignment().testFlag(Qt::AlignRight)
                                     ? field->text()
                                     : QString();
            // Those with names from files are as wide as there is room.
            const bool isList =
                list != nullptr &&
                list->sizeAdjustPolicy() != QComboBox::AdjustToMinimumContentsLengthWithIcon;
            const int wanted = metrics.horizontalAdvance(isList ? list->currentText() : text);
            const int arrow = isList ? metrics.height() : 4;
            if (metrics.height() > inside.height() || wanted + arrow > inside.width()) {
                complaints.Add(*widget, "is cut");
            }
        }
        const QWidget* parent = widget->parentWidget();
        const auto* area = qobject_cast<const QAbstractScrollArea*>(parent->parentWidget());
        const bool scrolls =
            (area != nullptr && area->horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) ||
            parent->inherits("QHeaderView");
        if (!scrolls && (widget->geometry().right() > parent->width() || widget->x() < 0)) {
            complaints.Add(*widget, "is partly outside");
        }
    }
}

class EveryLook : public testing::Test {
protected:
    EveryLook()
    {
        QApplication::setStyle(new studio::StudioStyle);
        qApp->setStyleSheet(studio::SheetOf(Theme::Dark));
    }
    ~EveryLook() override
    {
        qApp->setStyleSheet({});
        QApplication::setStyle(m_style);
        QApplication::setFont(m_font);
    }

    void ExpectNone(const std::function<void(QWidget&, Complaints&)>& look)
    {
        StudioTest::StudioRig rig;
        rig.Start();
        rig.Window().resize(1280, 720);
        Complaints complaints;
        StudioTest::EveryWindow all(rig, [&](QWidget& window) { look(window, complaints); });
        all.Show();
        EXPECT_EQ(complaints.Text(), "");
        for (const char* dialog : {"Options", "Extended Material", "Texture Cropping",
                                   "Flat Wrap Options", "About Corvex Studio"}) {
            EXPECT_TRUE(all.Dialogs().contains(QLatin1String(dialog))) << dialog;
        }
    }

private:
    QString m_style = QApplication::style()->name();
    QFont m_font = QApplication::font();
};

TEST_F(EveryLook, HasNamesRolesValuesAndLetters)
{
    ExpectNone([](QWidget& window, Complaints& complaints) {
        ExpectAccessible(window, complaints);
        ExpectMnemonics(window, complaints);
    });
}

TEST_F(EveryLook, IsWholeInAFontOfTwentyPoints)
{
    QFont large = QApplication::font();
    large.setPointSize(20);
    QApplication::setFont(large);
    ExpectNone(ExpectWhole);
}

TEST_F(EveryLook, FitsIntoASmallScreenAndANarrowDock)
{
    StudioTest::StudioRig rig;
    rig.Start();
    rig.Window().resize(1280, 720);
    rig.Window().resizeDocks({&rig.Window().Dock()}, {300}, Qt::Horizontal);
    QCoreApplication::processEvents();
    EXPECT_EQ(rig.Window().size(), QSize(1280, 720));
    EXPECT_LE(rig.Window().Dock().width(), 300);
    Complaints complaints;
    StudioTest::EveryWindow all(rig, [&](QWidget& window) {
        ExpectWhole(window, complaints);
        EXPECT_LE(window.width(), 1280) << Described(window);
        EXPECT_LE(window.height(), 720) << Described(window);
    });
    all.Show();
    EXPECT_EQ(complaints.Text(), "");
}

}  // namespace
