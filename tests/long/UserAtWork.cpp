#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QGenericPlugin>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <cstdio>

namespace {

/// Does in the studio's window what a user does with a document, as quickly as it can: recovers
/// what is left, then edits and saves; or only saves and quits, or only edits. A custom field of
/// all shapes counts the edits.
class UserAtWork : public QObject {
public:
    explicit UserAtWork(QString task) : m_task(std::move(task))
    {
        // One of its own, as boxes show while the other one waits for what it began.
        connect(&m_answering, &QTimer::timeout, this, &UserAtWork::Answer);
        connect(&m_working, &QTimer::timeout, this, &UserAtWork::Work);
        m_answering.start(3);
        m_working.start(3);
    }

private:
    static void Answer()
    {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            Say("told", box->text().simplified());
            box->reject();
        }
    }

    void Work()
    {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!FindsDocument() || (dialog != nullptr && dialog->objectName() != "RecoveryDialog")) {
            return;
        }
        if (!m_isThere) {
            Say("there", QString());
            m_isThere = true;
        } else if (dialog != nullptr) {
            Recover(*dialog);
        } else if (m_hasRecovered && !m_hasDiscarded) {
            // The others are of programs that were killed while they did this.
            m_hasDiscarded = true;
            Trigger("Recover Unsaved Work...");
        } else if (m_task == QLatin1String("save")) {
            Trigger("Save");
            QCoreApplication::quit();
        } else {
            GoOn();
        }
    }

    bool FindsDocument()
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->windowTitle().startsWith(QLatin1String("scene.corvex"))) {
                m_window = window;
            }
        }
        return m_window != nullptr;
    }

    void Recover(QWidget& dialog)
    {
        const auto press = [&dialog](const char* button) {
            dialog.findChild<QPushButton*>(QLatin1String(button))->click();
        };
        if (!m_hasRecovered) {
            press("open");
            m_hasRecovered = true;
        } else {
            press("discardAll");
            press("keep");
        }
    }

    void GoOn()
    {
        if (!m_hasSelected) {
            Trigger("Select All");
            m_hasSelected = true;
        }
        auto* field = m_window->findChild<QLineEdit*>("txtCustomMaterialFieldValue_0");
        const QString next = QString::number(field->text().toInt() + 1);
        field->setText(next);
        Say("edited", next);
        if (m_task != QLatin1String("edit") && next.toInt() % 8 == 0) {
            Trigger("Save");
            Say(m_window->isWindowModified() ? "unsaved" : "saved", next);
        }
    }

    void Trigger(const char* name)
    {
        for (QAction* action : m_window->findChildren<QAction*>()) {
            if (action->text().remove(u'&') == QLatin1String(name)) {
                action->trigger();
                return;
            }
        }
    }

    static void Say(const char* what, const QString& which)
    {
        std::printf("%s %lld %s\n", what,
                    static_cast<long long>(QDateTime::currentMSecsSinceEpoch()),
                    which.toUtf8().constData());
        std::fflush(stdout);
    }

    const QString m_task;
    QTimer m_answering;
    QTimer m_working;
    QWidget* m_window = nullptr;
    bool m_isThere = false;
    bool m_hasRecovered = false;
    bool m_hasDiscarded = false;
    bool m_hasSelected = false;
};

}  // namespace

/// The toolkit loads it into a program that QT_QPA_GENERIC_PLUGINS tells to.
class UserAtWorkPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "UserAtWork.json")

public:
    QObject* create(const QString& /*name*/, const QString& task) override
    {
        return new UserAtWork(task);
    }
};

#include "UserAtWork.moc"
