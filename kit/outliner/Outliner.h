#pragma once

#include "OutlinerModel.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTabBar;

namespace studio {

class OutlinerView;
class Selection;
class StudioScene;

/// Lists the scene by shape or by material, with a search.
class Outliner : public QWidget {
    Q_OBJECT

public:
    /// Both outlive it.
    Outliner(StudioScene& scene, Selection& selection, QWidget* parent);

    [[nodiscard]] OutlinerModel& Model() { return *m_model; }
    [[nodiscard]] OutlinerView& View() { return *m_view; }
    [[nodiscard]] OutlinerModel::Mode Listed() const { return m_model->Listed(); }
    void SetMode(OutlinerModel::Mode mode);
    /// The scene has changed. Once, however often it is said until the events that wait have been
    /// handled; when it is seen again, if it is not.
    void ShowSoon();

Q_SIGNALS:
    void ModeChosen(studio::OutlinerModel::Mode mode);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Build();
    void ArrangeColumns();
    void ShowNow();

    StudioScene& m_scene;
    OutlinerModel* m_model;
    OutlinerView* m_view;
    QTabBar* m_modes;
    QLineEdit* m_search;
    QLabel* m_nothing;
    QTimer m_soon;
};

}  // namespace studio
