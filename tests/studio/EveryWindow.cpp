#include "EveryWindow.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QFileDialog>
#include <QMenuBar>
#include <QTabBar>

namespace StudioTest {

std::string Described(const QWidget& widget)
{
    const QString text = widget.property("text").toString();
    return QStringLiteral("%1 %2 \"%3\" in \"%4\"")
        .arg(widget.metaObject()->className(), widget.objectName(), text,
             widget.window()->windowTitle())
        .toStdString();
}

void EveryWindow::Show()
{
    QTimer dialogs;
    QObject::connect(&dialogs, &QTimer::timeout, [this] { CloseDialogs(); });
    dialogs.start(20);
    DressFirstShape();
    ShowPanel();
    for (const QAction* menu : m_rig.Window().menuBar()->actions()) {
        Trigger(*menu->menu());
    }
}

// Everything of the panel can then be used.
void EveryWindow::DressFirstShape()
{
    CorvexDB::udtMaterial material = m_rig.Shape(0)->Material();
    material.Textures.primary = m_rig.files.Save("wood.png", Qt::darkYellow).toStdString();
    material.Wrap = CorvexDB::WrapType::Flat;
    m_rig.Shape(0)->SetApplied(studio::WholeMaterial(material));
    m_rig.Select({0});
    for (auto expand : {&CorvexMaterial::IMaterial::put_bMaterialLibraryPanel,
                        &CorvexMaterial::IMaterial::put_bTexturePanel}) {
        static_cast<void>((m_rig.Window().Panel().*expand)(true));
    }
}

void EveryWindow::ShowPanel()
{
    auto& tabs = m_rig.Find<QTabBar>("tabChannels");
    QStringList pressed;
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        Settle();
        LookAt(m_rig.Window());
        for (const auto* button : m_rig.Window().Dock().findChildren<QAbstractButton*>()) {
            // What stays pressed opens nothing, and what has no name belongs to the toolkit.
            if (button->isVisible() && !button->isCheckable() && !button->objectName().isEmpty() &&
                !pressed.contains(button->objectName())) {
                pressed << button->objectName();
                Press(button->objectName());
            }
        }
        m_rig.Select({0});
    }
}

void EveryWindow::Press(const QString& button)
{
    auto* found = m_rig.Window().Dock().findChild<QAbstractButton*>(button);
    if (found != nullptr && found->isVisible() && found->isEnabled() &&
        !button.startsWith(QLatin1String("qt_"))) {
        found->click();
        Settle();
    }
}

void EveryWindow::Trigger(const QMenu& menu)
{
    for (QAction* action : menu.actions()) {
        if (action->menu() != nullptr) {
            Trigger(*action->menu());
        } else if (action->isEnabled() && !action->isCheckable() &&
                   !action->text().contains(QLatin1String("Quit"))) {
            action->trigger();
            Settle();
        }
    }
}

void EveryWindow::LookAt(QWidget& window)
{
    QTest::qWait(40);  // a changed size climbs from layout to layout
    const auto tabs = window.findChildren<QTabWidget*>();
    if (tabs.isEmpty()) {
        return m_look(window);
    }
    for (int page = 0; page < tabs.front()->count(); ++page) {
        tabs.front()->setCurrentIndex(page);
        QTest::qWait(40);
        m_look(window);
    }
}

void EveryWindow::CloseDialogs()
{
    if (std::exchange(m_isLooking, true)) {
        return;
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(window);
        if (dialog == nullptr || !dialog->isVisible()) {
            continue;
        }
        if (qobject_cast<QFileDialog*>(dialog) == nullptr &&
            qobject_cast<QColorDialog*>(dialog) == nullptr &&
            !m_dialogs.contains(dialog->windowTitle())) {
            m_dialogs << dialog->windowTitle();
            LookAt(*dialog);
        }
        dialog->reject();
    }
    m_isLooking = false;
}

void EveryWindow::Settle()
{
    QTest::qWait(30);
    const auto dialogIsOpen = [] {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
            return window->isVisible() && qobject_cast<const QDialog*>(window) != nullptr;
        });
    };
    if (!QTest::qWaitFor([&] { return !dialogIsOpen(); }, 10000)) {
        throw std::runtime_error("a dialog stays open");
    }
    m_rig.AwaitFiles();
}

}  // namespace StudioTest
