#include "Outliner.h"

#include "OutlinerSelection.h"
#include "OutlinerView.h"
#include "StudioScene.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

namespace studio {

Outliner::Outliner(StudioScene& scene, Selection& selection, QWidget* parent)
    : QWidget(parent), m_scene(scene), m_model(new OutlinerModel(this)),
      m_view(new OutlinerView(*m_model, this)), m_modes(new QTabBar(this)),
      m_search(new QLineEdit(this)), m_nothing(new QLabel(this))
{
    Build();
    new OutlinerSelection(*m_model, *m_view, selection);
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &Outliner::ShowNow);
    connect(m_modes, &QTabBar::currentChanged, this, [this](int tab) {
        const auto mode = static_cast<OutlinerModel::Mode>(tab);
        m_model->SetMode(mode);
        ArrangeColumns();
        Q_EMIT ModeChosen(mode);
    });
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_model->SetSearch(text);
        constexpr std::size_t kFewShapes = 200;
        if (!text.trimmed().isEmpty() && m_model->ShapeCount() <= kFewShapes) {
            m_view->expandAll();
        }
    });
    connect(m_view, &OutlinerView::SearchTyped, this, [this](const QString& text) {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->insert(text);
    });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        m_nothing->setText(m_search->text().trimmed().isEmpty() ? tr("The scene has no shapes.")
                                                                : tr("Nothing has that name."));
        m_nothing->setVisible(m_model->rowCount() == 0);
    });
}

void Outliner::Build()
{
    setObjectName(QStringLiteral("outliner"));
    m_modes->setObjectName(QStringLiteral("outlinerModes"));
    m_modes->setAccessibleName(tr("List by"));
    m_modes->setDrawBase(false);
    m_modes->setExpanding(true);
    m_modes->addTab(tr("Shapes"));
    m_modes->addTab(tr("Materials"));
    m_modes->setTabToolTip(0, tr("Lists every shape with its material"));
    m_modes->setTabToolTip(1, tr("Lists every material with the shapes that share it"));
    m_search->setObjectName(QStringLiteral("outlinerSearch"));
    m_search->setAccessibleName(tr("Search the scene"));
    m_search->setPlaceholderText(tr("Search shapes and materials"));
    m_search->setToolTip(tr("Shows what has these words in its name or in that of its material"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_view->setObjectName(QStringLiteral("outlinerRows"));
    m_view->setAccessibleName(tr("Shapes and materials of the scene"));
    ArrangeColumns();
    m_nothing->setObjectName(QStringLiteral("outlinerEmpty"));
    m_nothing->setWordWrap(true);
    m_nothing->setMargin(6);
    m_nothing->hide();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    column->addWidget(m_modes);
    column->addWidget(m_search);
    column->addWidget(m_nothing);
    column->addWidget(m_view, 1);
    setFocusProxy(m_view);
}

// Names of materials need more room than their number of shapes.
void Outliner::ArrangeColumns()
{
    const bool byMaterial = Listed() == OutlinerModel::Mode::Materials;
    m_view->setRootIsDecorated(byMaterial);
    m_view->header()->resizeSection(
        OutlinerModel::kMaterial, m_view->fontMetrics().averageCharWidth() * (byMaterial ? 9 : 14));
}

void Outliner::SetMode(OutlinerModel::Mode mode)
{
    m_modes->setCurrentIndex(static_cast<int>(mode));
}

void Outliner::ShowSoon()
{
    if (isVisible() && !m_soon.isActive()) {
        m_soon.start(0);
    }
}

void Outliner::ShowNow()
{
    m_model->Show(m_scene.All());
    m_view->viewport()->update();
}

void Outliner::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    ShowNow();
}

// From the search down into the list, and out of the search without a trace.
bool Outliner::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) {
            m_search->clear();
        }
        if (key == Qt::Key_Escape || key == Qt::Key_Down || key == Qt::Key_Return ||
            key == Qt::Key_Enter) {
            m_view->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace studio
