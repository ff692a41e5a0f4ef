#include <CorvexMaterial/KeyboardAccess.h>

#include "ElidedLabel.h"
#include "SectionHeader.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTabWidget>
#include <QVariant>

#include <algorithm>
#include <utility>

namespace CorvexMaterial {

namespace {

/// Ours, which may change; one that was there before stays.
constexpr const char* kGiven = "givenLetter";

QString CaptionOf(const QWidget& widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text();
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const bool isCaption = label != nullptr && label->buddy() != nullptr &&
                           qobject_cast<const ElidedLabel*>(label) == nullptr;
    return isCaption ? label->text() : QString();
}

void SetCaption(QWidget& widget, const QString& caption)
{
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        // It would take one that the button has from somebody else.
        const QKeySequence shortcut = button->shortcut();
        const bool isMnemonic = shortcut == QKeySequence::mnemonic(button->text());
        button->setText(caption);
        if (!shortcut.isEmpty() && !isMnemonic) {
            button->setShortcut(shortcut);
        }
    } else {
        static_cast<QLabel&>(widget).setText(caption);
    }
}

/// -1 where the caption has none.
qsizetype PlaceOfLetter(const QString& caption)
{
    for (qsizetype at = caption.indexOf(u'&'); at >= 0 && at + 1 < caption.size();
         at = caption.indexOf(u'&', at + 2)) {
        if (caption[at + 1] != u'&') {
            return at + 1;
        }
    }
    return -1;
}

QChar LetterIn(const QString& caption)
{
    const qsizetype place = PlaceOfLetter(caption);
    return place < 0 ? QChar() : caption[place].toLower();
}

/// First letters of words come first, then any; -1 where all are taken.
qsizetype FreePlace(const QString& caption, const QString& taken)
{
    const auto isFree = [&](qsizetype at) {
        return caption[at].isLetter() && !taken.contains(caption[at].toLower());
    };
    for (const bool onlyFirst : {true, false}) {
        for (qsizetype at = 0; at < caption.size(); ++at) {
            const bool isFirst = at == 0 || caption[at - 1].isSpace();
            if (isFree(at) && (isFirst || !onlyFirst)) {
                return at;
            }
        }
    }
    return -1;
}

QString MenuLetters(const QWidget& window)
{
    QString letters;
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
        for (const QAction* menu : bar->actions()) {
            letters.append(LetterIn(menu->text()));
        }
    }
    return letters;
}

/// Return or Escape presses it anyway.
bool HasKey(const QWidget& widget)
{
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    return button != nullptr && qobject_cast<const QDialog*>(button->window()) != nullptr &&
           (button->isDefault() || button->objectName() == QLatin1String("cmdCancel"));
}

class Access : public QObject {
public:
    explicit Access(QWidget& root) : QObject(&root), m_root(root)
    {
        root.installEventFilter(this);
        for (const QTabWidget* tabs : root.findChildren<QTabWidget*>()) {
            connect(tabs, &QTabWidget::currentChanged, this, &Access::GiveLettersSoon);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            return Opens(*static_cast<QKeyEvent*>(event));
        }
        // Pages turn and captions change with a layout.
        const bool mayBeOthers =
            event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show;
        if (mayBeOthers) {
            GiveLettersSoon();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void GiveLettersSoon()
    {
        if (!std::exchange(m_isDue, true)) {
            QMetaObject::invokeMethod(
                this, [this] { GiveLetters(); }, Qt::QueuedConnection);
        }
    }

    /// A key that the focused control has not taken comes up to the root.
    bool Opens(const QKeyEvent& key)
    {
        QWidget* const focused = m_root.focusWidget();
        if (key.modifiers() != Qt::NoModifier && key.modifiers() != Qt::KeypadModifier) {
            return false;
        }
        if ((key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) || focused == nullptr ||
            !focused->hasFocus()) {
            return false;
        }
        const bool ticks = (qobject_cast<QCheckBox*>(focused) != nullptr &&
                            qobject_cast<SectionHeader*>(focused) == nullptr) ||
                           qobject_cast<QRadioButton*>(focused) != nullptr;
        if (auto* button = qobject_cast<QAbstractButton*>(focused); button != nullptr && !ticks) {
            button->animateClick();
            return true;
        }
        if (auto* list = qobject_cast<QComboBox*>(focused);
            list != nullptr && !list->isEditable()) {
            list->showPopup();
            return true;
        }
        return false;
    }

    void GiveLetters()
    {
        m_isDue = false;
        const QWidget& window = *m_root.window();
        QString taken = MenuLetters(window);
        QList<QWidget*> ours;
        QSet<const QWidget*> named;
        for (const QLabel* label : window.findChildren<QLabel*>()) {
            named.insert(label->buddy());
        }
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const QString caption = CaptionOf(*widget);
            if (caption.isEmpty() || !widget->isVisible() || widget->window() != &window ||
                named.contains(widget) || HasKey(*widget)) {
                continue;
            }
            const QChar letter = LetterIn(caption);
            if (widget->property(kGiven).toBool() ||
                (letter.isNull() && m_root.isAncestorOf(widget))) {
                ours.append(widget);
            } else if (!letter.isNull()) {
                taken.append(letter);
            }
        }
        QHash<QChar, QWidget*> owners;
        for (QWidget* widget : std::as_const(ours)) {
            const QChar letter = LetterIn(CaptionOf(*widget));
            if (letter.isNull() || taken.contains(letter)) {
                Take(*widget);
            } else {
                taken.append(letter);
                owners.insert(letter, widget);
            }
        }
        for (QWidget* widget : std::as_const(ours)) {
            if (LetterIn(CaptionOf(*widget)).isNull()) {
                Give(*widget, taken, owners);
            }
        }
    }

    static void Take(QWidget& widget)
    {
        widget.setProperty(kGiven, true);
        QString caption = CaptionOf(widget);
        if (const qsizetype at = PlaceOfLetter(caption); at > 0) {
            SetCaption(widget, caption.remove(at - 1, 1));
        }
    }

    static void Give(QWidget& widget, QString& taken, QHash<QChar, QWidget*>& owners)
    {
        QString caption = CaptionOf(widget);
        qsizetype place = FreePlace(caption, taken);
        // One that has another to go to makes room.
        for (qsizetype at = 0; place < 0 && at < caption.size(); ++at) {
            QWidget* const owner = owners.value(caption[at].toLower());
            if (owner != nullptr && FreePlace(CaptionOf(*owner), taken) >= 0) {
                Take(*owner);
                Give(*owner, taken, owners);
                place = at;
            }
        }
        if (place < 0) {
            return;
        }
        const QChar letter = caption[place].toLower();
        taken.append(letter);
        owners.insert(letter, &widget);
        SetCaption(widget, caption.insert(place, u'&'));
    }

    QWidget& m_root;
    bool m_isDue = false;
};

}  // namespace

void GiveKeyboardAccess(QWidget& root)
{
    constexpr const char* kHasAccess = "hasKeyboardAccess";
    if (!root.property(kHasAccess).toBool()) {
        root.setProperty(kHasAccess, true);
        new Access(root);
    }
}

}  // namespace CorvexMaterial
