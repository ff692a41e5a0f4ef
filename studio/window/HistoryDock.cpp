#include "HistoryDock.h"

#include "Tr.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QUndoView>

namespace studio {

void AddHistoryDock(QMainWindow& window, QMenu& menu, QUndoStack& history)
{
    auto* dock = new QDockWidget(Tr("History"), &window);
    dock->setObjectName(QStringLiteral("historyDock"));
    auto* steps = new QUndoView(&history, dock);
    steps->setObjectName(QStringLiteral("historySteps"));
    steps->setAccessibleName(Tr("Steps of the history"));
    steps->setEmptyLabel(Tr("As it was opened"));
    steps->setProperty("helpTopic", QStringLiteral("history"));
    dock->setWidget(steps);
    window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    dock->hide();
    QAction* toggle = dock->toggleViewAction();
    toggle->setText(Tr("&History"));
    toggle->setStatusTip(Tr("Lists what was done; a click goes back or forward to there"));
    menu.addAction(toggle);
}

}  // namespace studio
