#include "LibraryBrowser.h"

#include "LibraryDelegate.h"
#include "LibraryDrag.h"
#include "LibraryView.h"
#include "SearchField.h"
#include <CorvexMaterial/Status.h>

#include <QBoxLayout>
#include <QDrag>
#include <QHelpEvent>
#include <QLocale>
#include <QMimeData>
#include <QScrollBar>
#include <QToolTip>

namespace studio {
namespace {

// The heights of a row that the panel counts in.
constexpr int kMaterialRowHeight = 68;
constexpr int kTextureRowHeight = 66;

constexpr int kDragPictureSide = 48;

}  // namespace

LibraryBrowser::LibraryBrowser(OpenLibrary library, LibraryKind kind, FieldNames fieldNames,
                               QWidget* parent)
    : QWidget(parent), m_fieldNames(std::move(fieldNames)),
      m_model(new LibraryModel(std::move(library), kind, this)),
      m_delegate(new LibraryDelegate(*m_model, this)),
      m_view(new LibraryView(
          *m_model, *m_delegate,
          kind == LibraryKind::Materials ? kMaterialRowHeight : kTextureRowHeight, this)),
      m_search(new SearchField(parent))
{
    const bool materials = kind == LibraryKind::Materials;
    m_view->setObjectName(materials ? QStringLiteral("materialEntries")
                                    : QStringLiteral("textureEntries"));
    m_view->setAccessibleName(materials ? tr("Materials of the library")
                                        : tr("Textures of the library"));
    m_search->setObjectName(materials ? QStringLiteral("searchMaterials")
                                      : QStringLiteral("searchTextures"));
    m_search->hide();  // until somebody wants it
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    const QColor background = palette().color(QPalette::Base);
    m_view->SetBackground(background);
    m_delegate->SetBackground(background);
    m_view->viewport()->installEventFilter(this);
    Connect();
    UpdateTexts();
}

LibraryBrowser::~LibraryBrowser() = default;

void LibraryBrowser::Connect()
{
    connect(m_view, &LibraryView::Chosen, this, &LibraryBrowser::Choose);
    connect(m_view, &LibraryView::Opened, this, &LibraryBrowser::Open);
    connect(m_view, &LibraryView::DragStarted, this, &LibraryBrowser::Drag);
    connect(m_view, &LibraryView::DeletePressed, this, &LibraryBrowser::DeletePressed);
    connect(m_view, &LibraryView::MenuWanted, this, &LibraryBrowser::MenuWanted);
    connect(m_view, &LibraryView::SearchTyped, m_search, &SearchField::Append);
    connect(m_search, &SearchField::QueryChanged, this, &LibraryBrowser::Search);
    connect(m_search, &SearchField::Refused, this, &LibraryBrowser::Message);
    connect(m_search, &SearchField::Left, m_view, qOverload<>(&QWidget::setFocus));
    // Queued: the editor has to be gone before the entries are shown anew.
    connect(m_model, &LibraryModel::RenameWanted, this, &LibraryBrowser::RenameWanted,
            Qt::QueuedConnection);
    connect(m_model, &LibraryModel::Failed, this, &LibraryBrowser::Message);
    const QScrollBar* bar = m_view->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, &LibraryBrowser::TellScroll);
    connect(bar, &QScrollBar::rangeChanged, this, &LibraryBrowser::TellScroll);
}

LibraryKind LibraryBrowser::Kind() const
{
    return m_model->Kind();
}

QWidget* LibraryBrowser::Companion()
{
    m_search->show();
    return m_search;
}

void LibraryBrowser::ShowItems(std::int32_t count)
{
    ShowEntries(count);
    const LibraryFile* file = m_model->File();
    const std::string path = file != nullptr ? file->Path() : std::string();
    // The same library again, after a change of it: the user goes on where he was.
    m_view->doItemsLayout();
    m_view->verticalScrollBar()->setValue(path == m_path ? m_position : 0);
    m_path = path;
}

void LibraryBrowser::Clear()
{
    m_position = m_view->verticalScrollBar()->value();
    ShowEntries(-1);
}

void LibraryBrowser::ShowEntries(std::int32_t count)
{
    m_view->Mark(-1);
    m_model->ShowEntries(count);
    UpdateTexts();
}

void LibraryBrowser::Reread(std::int32_t count, std::optional<std::int32_t> marked)
{
    const int position = m_view->verticalScrollBar()->value();
    m_position = position;
    ShowItems(count);
    if (marked) {
        m_view->Mark(m_model->RowOf(*marked));
        m_view->verticalScrollBar()->setValue(position);
    }
}

void LibraryBrowser::ChooseSelected()
{
    if (const int row = SelectedRow(); row >= 0) {
        Choose(row);
    }
}

void LibraryBrowser::Search(const std::optional<LibraryQuery>& query)
{
    const int row = SelectedRow();
    const std::int32_t selected = row < 0 ? -1 : m_model->FileIndex(row);
    m_model->SetQuery(query);
    UpdateTexts();
    if (selected >= 0) {
        m_view->Mark(m_model->RowOf(selected));
    }
}

void LibraryBrowser::UpdateTexts()
{
    m_view->SetEmptyText(EmptyText());
    if (m_search == nullptr) {
        return;
    }
    const bool materials = Kind() == LibraryKind::Materials;
    const QString count = QLocale().toString(std::max(m_model->EntryCount(), 0));
    m_search->setEnabled(m_model->EntryCount() > 0);
    if (m_model->EntryCount() <= 0) {
        m_search->setPlaceholderText(tr("Search"));
    } else {
        m_search->setPlaceholderText(materials ? tr("Search %1 materials").arg(count)
                                               : tr("Search %1 textures").arg(count));
    }
}

QString LibraryBrowser::EmptyText() const
{
    const bool materials = Kind() == LibraryKind::Materials;
    if (m_model->EntryCount() < 0) {
        return tr("No library is open.");
    }
    if (m_model->EntryCount() > 0) {
        return materials ? tr("No material matches.") : tr("No texture matches.");
    }
    return materials ? tr("This library is empty. Add the material on the panel to it.")
                     : tr("This library is empty. Add the texture of a channel to it.");
}

int LibraryBrowser::SelectedRow() const
{
    const QModelIndexList selected = m_view->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.front().row();
}

std::int32_t LibraryBrowser::SelectedIndex()
{
    const int row = SelectedRow();
    return row < 0 ? -1 : m_model->FileIndex(row);
}

void LibraryBrowser::ReleaseSelection()
{
    m_view->Mark(-1);
}

void LibraryBrowser::Redraw()
{
    m_view->viewport()->update();
}

void LibraryBrowser::Reveal(std::int32_t fileIndex)
{
    const int row = m_model->RowOf(fileIndex);
    m_view->Mark(row);
    if (row >= 0) {
        m_view->scrollTo(m_model->index(row, 0));
    }
}

void LibraryBrowser::EditName()
{
    if (const int row = SelectedRow(); row >= 0) {
        m_view->setFocus();
        m_view->edit(m_model->index(row, 0));
    }
}

void LibraryBrowser::SetBackColor(CorvexMaterial::Colour colour)
{
    const auto bytes = CorvexMaterial::BytesOf(colour);
    const QColor background(bytes.red, bytes.green, bytes.blue);
    m_view->SetBackground(background);
    m_delegate->SetBackground(background);
    Redraw();
}

void LibraryBrowser::SetListener(CorvexEditport::EditportListener* listener)
{
    m_listener = listener;
}

void LibraryBrowser::ScrollFromOutside()
{
    m_scrolledFromOutside = true;
    m_view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    TellScroll();
}

void LibraryBrowser::ScrollTo(std::int32_t position)
{
    m_view->verticalScrollBar()->setValue(position);
}

void LibraryBrowser::TellScroll()
{
    const QScrollBar* bar = m_view->verticalScrollBar();
    const CorvexEditport::ScrollRange range{bar->value(), bar->maximum(), bar->pageStep(),
                                            bar->singleStep()};
    if (m_scrolledFromOutside && m_listener != nullptr && range != m_told) {
        m_told = range;
        m_listener->Scrolled(range);
    }
}

void LibraryBrowser::Choose(int row)
{
    if (m_listener != nullptr) {
        m_listener->ItemSelected(m_model->FileIndex(row));
    }
}

void LibraryBrowser::Open(int row)
{
    if (m_listener != nullptr) {
        m_listener->ItemOpened(m_model->FileIndex(row));
    }
}

void LibraryBrowser::Drag(int row)
{
    LibraryFile* file = m_model->File();
    if (file == nullptr) {
        return;
    }
    try {
        auto dragged = DraggedEntry(*file, m_model->FileIndex(row));
        auto* drag = new QDrag(m_view);
        drag->setMimeData(dragged.release());
        QPixmap picture =
            m_model->Thumbnail(row, static_cast<int>(kDragPictureSide * devicePixelRatioF()));
        picture.setDevicePixelRatio(devicePixelRatioF());
        drag->setPixmap(picture);
        drag->setHotSpot({kDragPictureSide / 2, kDragPictureSide / 2});
        drag->exec(Qt::CopyAction);
    } catch (const CorvexMaterial::Error& error) {
        Q_EMIT Message(QString::fromUtf8(error.what()));
    }
}

bool LibraryBrowser::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return QWidget::eventFilter(watched, event);
    }
    const auto* help = static_cast<const QHelpEvent*>(event);
    const QModelIndex index = m_view->indexAt(help->pos());
    const QString text =
        index.isValid() ? m_model->ToolTip(index.row(), m_fieldNames()) : QString();
    QToolTip::showText(help->globalPos(), text, m_view, m_view->visualRect(index));
    return true;
}

}  // namespace studio
