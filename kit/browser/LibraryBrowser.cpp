#include "LibraryBrowser.h"

#include "DetailsForm.h"
#include "DropShelf.h"
#include "FilterButton.h"
#include "LibraryDelegate.h"
#include "LibraryDrag.h"
#include "LibraryView.h"
#include "SearchField.h"
#include "ShownText.h"
#include <CorvexMaterial/Status.h>
#include <CorvexMaterial/TextureFileTypes.h>

#include <QBoxLayout>
#include <QDrag>
#include <QHelpEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QUrl>

#include <algorithm>

namespace studio {
namespace {

// The heights of a row that the panel counts in.
constexpr int kMaterialRowHeight = 68;
constexpr int kTextureRowHeight = 66;

constexpr int kDragPictureSide = 48;

/// A pointer, its tip in the middle, with the picture beside it.
QPixmap CursorWith(const QPixmap& picture)
{
    constexpr int kBeside = 14;
    const qreal ratio = picture.devicePixelRatio();
    QPixmap cursor(QSize(2, 2) * (kBeside + kDragPictureSide) * ratio);
    cursor.setDevicePixelRatio(ratio);
    cursor.fill(Qt::transparent);
    QPainter painter(&cursor);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(kBeside + kDragPictureSide, kBeside + kDragPictureSide);
    painter.drawPixmap(kBeside, kBeside, picture);
    painter.setPen(Qt::white);
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygon({{0, 0}, {0, 16}, {4, 13}, {7, 19}, {9, 18}, {6, 12}, {11, 12}}));
    return cursor;
}

}  // namespace

LibraryBrowser::LibraryBrowser(OpenLibrary library, LibraryKind kind, FieldNames fieldNames,
                               UserMarks& marks, QWidget* parent)
    : QWidget(parent), m_fieldNames(std::move(fieldNames)),
      m_model(new LibraryModel(std::move(library), kind, marks, this)),
      m_delegate(new LibraryDelegate(*m_model, this)),
      m_view(new LibraryView(
          *m_model, *m_delegate,
          kind == LibraryKind::Materials ? kMaterialRowHeight : kTextureRowHeight, this)),
      m_searchRow(new QWidget(parent)), m_search(new SearchField(m_searchRow)),
      m_filter(new FilterButton([this] { return File(); }, m_searchRow)),
      m_shelf(new DropShelf(this))
{
    const bool materials = kind == LibraryKind::Materials;
    m_view->setObjectName(materials ? QStringLiteral("materialEntries")
                                    : QStringLiteral("textureEntries"));
    m_view->setAccessibleName(materials ? tr("Materials of the library")
                                        : tr("Textures of the library"));
    m_search->setObjectName(materials ? QStringLiteral("searchMaterials")
                                      : QStringLiteral("searchTextures"));
    m_filter->setObjectName(materials ? QStringLiteral("filterMaterials")
                                      : QStringLiteral("filterTextures"));
    m_searchRow->setFocusProxy(m_search);
    m_searchRow->hide();  // until somebody wants it
    auto* row = new QHBoxLayout(m_searchRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(m_filter);
    row->addWidget(m_search, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    const QColor background = palette().color(QPalette::Base);
    m_view->SetBackground(background);
    m_delegate->SetBackground(background);
    m_view->viewport()->installEventFilter(this);
    Connect();
    ConnectMarks();
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
    connect(m_model, &LibraryModel::PictureMissing, this, &LibraryBrowser::PictureMissing);
    connect(m_model, &LibraryModel::Failed, this, &LibraryBrowser::Message);
    const QScrollBar* bar = m_view->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, &LibraryBrowser::TellScroll);
    connect(bar, &QScrollBar::rangeChanged, this, &LibraryBrowser::TellScroll);
}

void LibraryBrowser::ConnectMarks()
{
    constexpr std::chrono::milliseconds kUntilUsed{1000};
    m_search->SetWords([this] { return SearchWords(); });
    connect(m_filter, &FilterButton::Chosen, m_search, &QLineEdit::setText);
    connect(m_search, &QLineEdit::textChanged, m_filter, &FilterButton::SetCurrent);
    connect(m_view, &LibraryView::StarPressed, this, [this](int row) {
        if (LibraryFile* file = File(); file != nullptr && m_model->HasMarks()) {
            Q_EMIT FavouriteWanted({file->IdAt(m_model->FileIndex(row))});
        }
    });
    m_view->SetTakes([this](const QDropEvent& event) { return Takes(event); });
    connect(m_view, &LibraryView::Dropped, this, &LibraryBrowser::TakeDropped);
    connect(
        m_shelf, &DropShelf::Dropped, this, [this] { Q_EMIT CopyDropped(SelectedIds()); },
        Qt::QueuedConnection);
    connect(m_view, &LibraryView::FavouritePressed, this,
            [this] { Q_EMIT FavouriteWanted(SelectedIds()); });
    connect(m_view, &LibraryView::RatingPressed, this,
            [this](int rating) { Q_EMIT RatingWanted(SelectedIds(), rating); });
    m_useSoon.setSingleShot(true);
    m_useSoon.setInterval(kUntilUsed);
    connect(&m_useSoon, &QTimer::timeout, this,
            [this] { Q_EMIT Used(m_chosen.first, m_chosen.second); });
}

// Files are for textures, of which one at least is there by its name; the window around opens
// others.
bool LibraryBrowser::Takes(const QDropEvent& event)
{
    const LibraryFile* file = File();
    if (file == nullptr || file->IsInMemory() || event.source() == m_view) {
        return false;
    }
    if (Kind() == LibraryKind::Materials) {
        return DraggedMaterial(*event.mimeData()).has_value();
    }
    return std::ranges::any_of(event.mimeData()->urls(), [](const QUrl& url) {
        return CorvexMaterial::IsListed(url.toLocalFile().toStdString(),
                                        CorvexMaterial::TextureTypeList::All);
    });
}

void LibraryBrowser::TakeDropped(const QMimeData& dropped)
{
    if (const auto material = DraggedMaterial(dropped);
        material && Kind() == LibraryKind::Materials) {
        QMetaObject::invokeMethod(
            this, [this, material] { Q_EMIT MaterialDropped(*material); }, Qt::QueuedConnection);
        return;
    }
    QStringList files;
    for (const QUrl& url : dropped.urls()) {
        files << (url.isLocalFile() ? url.toLocalFile() : url.toString());
    }
    QMetaObject::invokeMethod(
        this, [this, files] { Q_EMIT FilesDropped(files); }, Qt::QueuedConnection);
}

// Who goes through a library with the keys does not use what he passes.
void LibraryBrowser::UseSoon(int row)
{
    if (LibraryFile* file = File(); file != nullptr && !file->IsInMemory()) {
        m_chosen = {file->Path(), file->IdAt(m_model->FileIndex(row))};
        m_useSoon.start();
    }
}

QStringList LibraryBrowser::SearchWords() const
{
    QStringList words{QStringLiteral("fav:no"), QStringLiteral("has:tag"),
                      QStringLiteral("has:collection")};
    LibraryFile* file = File();
    if (file == nullptr) {
        return words;
    }
    const DetailChoices choices = DetailChoices::Of(*file);
    const auto add = [&words](const char* key, const QStringList& values) {
        for (const QString& value : values) {
            const QString text = value.contains(u' ') ? u'"' + value + u'"' : value;
            words << QLatin1String(key) + text;
        }
    };
    for (const auto& [kind, labels] : choices.labels) {
        add(kind == LabelKind::Tag ? "tag:" : "collection:", labels);
    }
    add("author:", choices.authors);
    add("licence:", choices.licences);
    return words;
}

std::vector<EntryId> LibraryBrowser::SelectedIds() const
{
    std::vector<EntryId> ids;
    const LibraryFile* file = File();
    for (const QModelIndex& index : m_view->selectionModel()->selectedIndexes()) {
        if (file != nullptr && m_model->FileIndex(index.row()) < file->Count()) {
            ids.push_back(file->IdAt(m_model->FileIndex(index.row())));
        }
    }
    std::ranges::sort(ids);
    return ids;
}

std::string LibraryBrowser::ShownCollection() const
{
    const auto& query = m_model->Query();
    LibraryFile* file = File();
    if (!query || file == nullptr) {
        return {};
    }
    std::string shown;
    for (const QueryTerm& term : query->terms) {
        const auto* label = std::get_if<LabelTest>(&term.test);
        if (label == nullptr || label->kind != LabelKind::Collection || term.isNegated) {
            continue;
        }
        for (const LabelUse& known : file->Labels(LabelKind::Collection)) {
            if (Folded(known.name) == label->label) {
                shown = known.name;
            }
        }
    }
    return shown;
}

void LibraryBrowser::ShowMarks()
{
    const int row = SelectedRow();
    const std::int32_t selected = row < 0 ? -1 : m_model->FileIndex(row);
    m_model->ShowMarks();
    if (SelectedRow() < 0 && selected >= 0) {
        m_view->Mark(m_model->RowOf(selected));
    }
}

void LibraryBrowser::ShowPicture(EntryId id)
{
    m_model->ForgetPicture(id);
    m_view->viewport()->update();
}

LibraryKind LibraryBrowser::Kind() const
{
    return m_model->Kind();
}

QWidget* LibraryBrowser::Companion()
{
    m_searchRow->show();
    return m_searchRow;
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
    const int count = std::max(m_model->EntryCount(), 0);
    m_searchRow->setEnabled(count > 0);
    if (count == 0) {
        m_search->setPlaceholderText(tr("Search"));
    } else {
        m_search->setPlaceholderText(materials ? tr("Search %Ln material(s)", nullptr, count)
                                               : tr("Search %Ln texture(s)", nullptr, count));
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
    const QItemSelectionModel& selection = *m_view->selectionModel();
    const QModelIndexList selected = selection.selectedIndexes();
    const QModelIndex current = selection.currentIndex();
    if (selected.isEmpty()) {
        return -1;
    }
    return selection.isSelected(current) ? current.row() : selected.front().row();
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
    UseSoon(row);
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
        // Where it can be dropped nothing lies over what it would change.
        drag->setDragCursor(CursorWith(picture), Qt::IgnoreAction);
        // It may be dropped on a shape.
        UseSoon(row);
        const QString shelf = file->IsInMemory() && m_shelfLibrary ? m_shelfLibrary() : QString();
        if (!shelf.isEmpty()) {
            m_shelf->Offer(shelf);
        }
        drag->exec(Qt::CopyAction);
        m_shelf->hide();
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
    const bool onStar = index.isValid() &&
                        LibraryDelegate::StarArea(m_view->visualRect(index)).contains(help->pos());
    QString text = onStar ? tr("Favourite (Ctrl+D)") : QString();
    if (index.isValid() && !onStar) {
        text = m_model->ToolTip(index.row(), m_fieldNames());
        const LibraryFile* file = File();
        if (file != nullptr && file->IsInMemory() && m_users) {
            text += TipRow(tr("Used by"), m_users(file->IdAt(m_model->FileIndex(index.row()))));
        }
    }
    QToolTip::showText(help->globalPos(), text, m_view, m_view->visualRect(index));
    return true;
}

}  // namespace studio
