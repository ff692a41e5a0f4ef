#include "FilterButton.h"

#include "EntryMarks.h"
#include "LibraryQuery.h"
#include "RatingText.h"
#include "ShownText.h"
#include <CorvexMaterial/Status.h>

#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace studio {
namespace {

// A menu with more is of no use; the search field completes the others.
constexpr std::size_t kMostLabels = 30;

constexpr int kIconSide = 16;

// A funnel, in the colour of the button's text.
QIcon FilterIcon(const QColor& colour)
{
    constexpr int kSharp = 4;
    QPixmap picture(kIconSide * kSharp, kIconSide * kSharp);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kSharp, kSharp);
    QPainterPath funnel;
    funnel.addPolygon(QPolygonF({{2.5, 3}, {13.5, 3}, {9.5, 8}, {9.5, 13}, {6.5, 11}, {6.5, 8}}));
    funnel.closeSubpath();
    QPen pen(colour, 1.3);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.strokePath(funnel, pen);
    return picture;
}

}  // namespace

FilterButton::FilterButton(Library library, QWidget* parent)
    : QToolButton(parent), m_library(std::move(library)), m_menu(new QMenu(this))
{
    setIcon(FilterIcon(palette().color(QPalette::ButtonText)));
    setToolTip(tr("Show favourites, what was used lately, a collection or a tag"));
    setAccessibleName(tr("Filter"));
    setPopupMode(QToolButton::InstantPopup);
    setFocusPolicy(Qt::StrongFocus);
    setMenu(m_menu);
    m_menu->setObjectName(QStringLiteral("filterMenu"));
    connect(m_menu, &QMenu::aboutToShow, this, &FilterButton::Fill);
}

void FilterButton::SetCurrent(const QString& query)
{
    m_current = query.trimmed();
}

void FilterButton::Add(QMenu& menu, const QString& text, const QString& query)
{
    QAction* action = menu.addAction(text, this, [this, query] { Q_EMIT Chosen(query); });
    action->setCheckable(true);
    action->setChecked(query == m_current);
}

void FilterButton::AddLabels(const QString& title, const std::string& key,
                             const std::vector<LabelUse>& labels)
{
    QMenu* menu = m_menu->addMenu(title);
    menu->setEnabled(!labels.empty());
    for (std::size_t i = 0; i < std::min(labels.size(), kMostLabels); ++i) {
        const QString caption =
            tr("%1 (%2)").arg(MenuCaption(QString::fromStdString(labels[i].name)),
                              QLocale().toString(static_cast<qlonglong>(labels[i].entries)));
        Add(*menu, caption, QString::fromStdString(QueryTextOf(key, labels[i].name)));
    }
}

void FilterButton::Fill()
{
    m_menu->clear();
    Add(*m_menu, tr("&All"), {});
    m_menu->addSeparator();
    Add(*m_menu, tr("&Favourites"), QStringLiteral("fav:yes"));
    Add(*m_menu, tr("&Recently Used"), QStringLiteral("recent:yes"));
    QMenu* ratings = m_menu->addMenu(tr("R&ated"));
    for (int rating = kBestRating; rating > 0; --rating) {
        Add(*ratings,
            rating == kBestRating ? RatingText(rating) : tr("%1 or More").arg(RatingText(rating)),
            QStringLiteral("rating>=%1").arg(rating));
    }
    LibraryFile* library = m_library();
    if (library == nullptr) {
        return;
    }
    try {
        m_menu->addSeparator();
        AddLabels(tr("&Collections"), "collection", library->Labels(LabelKind::Collection));
        AddLabels(tr("&Tags"), "tag", library->Labels(LabelKind::Tag));
    } catch (const CorvexMaterial::Error&) {
        // The browser tells that it cannot be read.
        return;
    }
}

}  // namespace studio
