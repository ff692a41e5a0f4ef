#include "RecoveryDialog.h"

#include "ui_RecoveryDialog.h"
#include <CorvexMaterial/PlainText.h>

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>

namespace studio {
namespace {

enum Column { kWork, kLastEdit, kEdits, kFrom };

QString BaseText(const LeftJournal& journal)
{
    const JournalBase& base = journal.Head().base;
    if (base.kind == JournalBase::Kind::DefaultScene) {
        return RecoveryDialog::tr("The scene that the studio starts with");
    }
    const QString path = QString::fromStdString(base.file.path);
    if (journal.BaseIsMissing()) {
        return RecoveryDialog::tr("%1\nis not there any more").arg(path);
    }
    return journal.BaseIsChanged() ? RecoveryDialog::tr("%1\nhas changed since").arg(path) : path;
}

QString Single(const std::string& text)
{
    return QString::fromStdString(text).simplified();
}

}  // namespace

RecoveryDialog::RecoveryDialog(LeftJournals journals, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::RecoveryDialog>()),
      m_journals(std::move(journals.found))
{
    m_ui->setupUi(this);
    QStringList summary;
    if (!m_journals.empty()) {
        summary << tr("Corvex Studio ended before this work was saved. It can be opened as it was "
                      "then, with its changes unsaved. What is kept is offered again at the next "
                      "start, and by File > Recover Unsaved Work.");
    }
    for (const std::string& refusal : journals.refused) {
        summary << QString::fromStdString(refusal);
    }
    m_ui->summary->setText(summary.join(u'\n'));
    for (const LeftJournal& journal : m_journals) {
        AddRow(journal);
    }
    // Before it is shown, the tree would measure without the style and without pictures.
    m_ui->works->ensurePolished();
    for (const int column : {kWork, kLastEdit, kEdits}) {
        constexpr int kWidest = 300;
        const int picture = column == kWork ? m_ui->works->iconSize().width() : 0;
        m_ui->works->resizeColumnToContents(column);
        m_ui->works->setColumnWidth(
            column, std::min(m_ui->works->columnWidth(column) + picture + 12, kWidest));
    }
    connect(m_ui->discard, &QPushButton::clicked, this, &RecoveryDialog::Discard);
    connect(m_ui->discardAll, &QPushButton::clicked, this, &RecoveryDialog::DiscardAll);
    connect(m_ui->works, &QTreeWidget::currentItemChanged, this, &RecoveryDialog::Offer);
    connect(m_ui->works, &QTreeWidget::itemActivated, m_ui->open, &QPushButton::click);
    m_ui->works->setCurrentItem(m_ui->works->topLevelItem(0));
    Offer();
}

RecoveryDialog::~RecoveryDialog() = default;

void RecoveryDialog::AddRow(const LeftJournal& journal)
{
    auto* row = new QTreeWidgetItem(m_ui->works);
    const QString name = Single(journal.Head().name);
    const QDateTime made = QDateTime::fromMSecsSinceEpoch(journal.Edits().made);
    row->setText(kWork, name);
    row->setIcon(kWork, QIcon(QPixmap::fromImage(journal.Picture())));
    row->setText(kLastEdit, QLocale().toString(made, QLocale::ShortFormat) + u'\n' +
                                Single(journal.Edits().what));
    row->setText(kEdits, QString::number(journal.Edits().count));
    row->setText(kFrom, BaseText(journal));
    for (const int column : {kWork, kLastEdit, kFrom}) {
        row->setToolTip(column, CorvexMaterial::PlainTip(row->text(column)));
    }
    constexpr int kRowHeight = 80;
    row->setSizeHint(kFrom, {0, kRowHeight});
}

std::size_t RecoveryDialog::Chosen() const
{
    return static_cast<std::size_t>(
        std::max(0, m_ui->works->indexOfTopLevelItem(m_ui->works->currentItem())));
}

LeftJournal RecoveryDialog::TakeChosen()
{
    return std::move(m_journals.at(Chosen()));
}

void RecoveryDialog::Discard()
{
    const auto row = static_cast<std::ptrdiff_t>(Chosen());
    m_journals[Chosen()].Discard();
    m_journals.erase(m_journals.begin() + row);
    delete m_ui->works->topLevelItem(static_cast<int>(row));
    Offer();
}

void RecoveryDialog::DiscardAll()
{
    while (!m_journals.empty()) {
        Discard();
    }
}

void RecoveryDialog::Offer()
{
    const bool isAny = !m_journals.empty();
    m_ui->open->setEnabled(isAny);
    m_ui->discard->setEnabled(isAny);
    m_ui->discardAll->setVisible(m_journals.size() > 1);
    if (!isAny) {
        m_ui->keep->setDefault(true);
    }
    m_ui->keep->setText(isAny ? tr("&Keep for Later") : tr("&Close"));
}

}  // namespace studio
