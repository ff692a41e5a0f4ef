#include "TourGuide.h"

#include "PictureFile.h"
#include "ViewportWidget.h"

#include <QAbstractItemView>
#include <QDir>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QTabBar>

#include <set>

namespace studio {
namespace {

constexpr int kPatienceMs = 20000;
// Longer than the pause after which a viewport refines its picture.
constexpr int kStillMs = 700;

void SendKey(QWidget& widget, int key, const QString& text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &release);
}

// A user sees what he edits: on the tab that holds it, and scrolled to.
void BringIntoView(QWidget& widget)
{
    auto* tabs = widget.window()->findChild<QTabBar*>(QStringLiteral("tabChannels"));
    for (int tab = 0; tabs != nullptr && tab < tabs->count() && !widget.isVisible(); ++tab) {
        tabs->setCurrentIndex(tab);
    }
    Expect(widget.isVisible(), QStringLiteral("%1 is not to be seen.").arg(widget.objectName()));
    for (QWidget* parent = widget.parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent)) {
            area->ensureWidgetVisible(&widget, 0, 40);
        }
    }
}

void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::KeyboardModifiers modifiers)
{
    const bool isDown = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton,
                      isDown ? Qt::LeftButton : Qt::NoButton, modifiers);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace

void Expect(bool fact, const QString& otherwise)
{
    if (!fact) {
        throw TourFailure(otherwise);
    }
}

TourGuide::TourGuide(QWidget& window, QString folder, int firstNumber)
    : m_window(window), m_folder(std::move(folder)), m_number(firstNumber)
{
}

QWidget* TourGuide::FindWidget(const char* name) const
{
    return m_window.findChild<QWidget*>(QLatin1String(name));
}

void TourGuide::Choose(const char* list, const QString& entry) const
{
    auto& box = Find<QComboBox>(list);
    BringIntoView(box);
    const int target = box.findText(entry);
    Expect(target >= 0 && box.isEnabled(),
           QStringLiteral("%1 does not offer %2.").arg(QLatin1String(list), entry));
    box.showPopup();
    box.view()->setCurrentIndex(
        box.model()->index(target, box.modelColumn(), box.rootModelIndex()));
    SendKey(*box.view(), Qt::Key_Return);
    Expect(box.currentIndex() == target,
           QStringLiteral("%1 does not take a choice.").arg(QLatin1String(list)));
}

void TourGuide::Type(const char* field, const QString& text) const
{
    auto& box = Find<QLineEdit>(field);
    BringIntoView(box);
    Expect(box.isEnabled(), QStringLiteral("%1 is disabled.").arg(QLatin1String(field)));
    box.selectAll();
    for (const QChar letter : text) {
        SendKey(box, 0, letter);
    }
    Expect(box.text() == text,
           QStringLiteral("%1 shows \"%2\".").arg(QLatin1String(field), box.text()));
}

void TourGuide::Press(const char* button) const
{
    auto& target = Find<QAbstractButton>(button);
    BringIntoView(target);
    Expect(target.isEnabled(), QStringLiteral("%1 is disabled.").arg(QLatin1String(button)));
    target.click();
}

void TourGuide::ClickAt(QWidget& widget, QPoint position, Qt::KeyboardModifiers modifiers)
{
    SendMouse(widget, QEvent::MouseButtonPress, position, modifiers);
    SendMouse(widget, QEvent::MouseButtonRelease, position, modifiers);
}

void TourGuide::Await(const std::function<void(std::function<void()>)>& start,
                      const QString& otherwise)
{
    QEventLoop loop;
    bool arrived = false;
    QTimer::singleShot(kPatienceMs, &loop, &QEventLoop::quit);
    start([&] {
        arrived = true;
        loop.quit();
    });
    if (!arrived) {
        loop.exec();
    }
    Expect(arrived, otherwise);
}

void TourGuide::Settle() const
{
    QEventLoop loop;
    QTimer still;
    still.setSingleShot(true);
    QObject::connect(&still, &QTimer::timeout, &loop, &QEventLoop::quit);
    QTimer::singleShot(kPatienceMs, &loop, &QEventLoop::quit);
    std::set<const ViewportWidget*> awaited;
    for (auto* viewport : m_window.findChildren<ViewportWidget*>()) {
        awaited.insert(viewport);
        QObject::connect(viewport, &ViewportWidget::pictureShown, &still,
                         [&still, &awaited, viewport] {
                             awaited.erase(viewport);
                             if (awaited.empty()) {
                                 still.start(kStillMs);
                             }
                         });
        viewport->Draw();
    }
    loop.exec();
    Expect(awaited.empty(), QStringLiteral("A viewport shows no picture."));
}

void TourGuide::Picture(const QString& name)
{
    PictureOf(m_window, name);
}

void TourGuide::PictureOf(QWidget& window, const QString& name)
{
    Settle();
    const QString path = QStringLiteral("%1/%2-%3.png")
                             .arg(m_folder)
                             .arg(m_number++, 2, 10, QLatin1Char('0'))
                             .arg(name);
    SavePicture(window.grab().toImage(), path, {"png"});
}

}  // namespace studio
