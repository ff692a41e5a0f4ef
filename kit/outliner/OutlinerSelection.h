#pragma once

#include <QItemSelection>
#include <QObject>

namespace studio {

class OutlinerModel;
class OutlinerView;
class Selection;

/// Keeps the rows that are selected in an outliner and the shapes that are selected in the scene
/// together. A material is selected when all of its shapes are; choosing it chooses them.
class OutlinerSelection : public QObject {
    Q_OBJECT

public:
    /// All of them outlive this object, which goes with the view.
    OutlinerSelection(OutlinerModel& model, OutlinerView& view, Selection& selection);

    /// Marks the rows of what is selected in the scene.
    void Mark();

private:
    void TakeFromView(const QItemSelection& selected, const QItemSelection& deselected);

    OutlinerModel& m_model;
    OutlinerView& m_view;
    Selection& m_selection;
    bool m_isTaking = false;
    bool m_isMarking = false;
};

}  // namespace studio
