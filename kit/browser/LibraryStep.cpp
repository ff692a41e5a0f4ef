#include "LibraryStep.h"

#include <QCoreApplication>
#include <QLocale>

#include <utility>

namespace studio {
namespace {

QString StepTitle(const LibraryEdit& change)
{
    using What = LibraryEdit::What;
    const bool several = change.ids.size() > 1;
    const char* title = QT_TRANSLATE_NOOP("LibraryStep", "Rename %1");
    if (change.what == What::Add) {
        title = several ? QT_TRANSLATE_NOOP("LibraryStep", "Add %1 Entries to the Library")
                        : QT_TRANSLATE_NOOP("LibraryStep", "Add %1 to the Library");
    } else if (change.what == What::Describe) {
        title = several ? QT_TRANSLATE_NOOP("LibraryStep", "Change Properties of %1 Entries")
                        : QT_TRANSLATE_NOOP("LibraryStep", "Change Properties of %1");
    } else if (change.what == What::Remove) {
        title = several ? QT_TRANSLATE_NOOP("LibraryStep", "Delete %1 Entries from the Library")
                        : QT_TRANSLATE_NOOP("LibraryStep", "Delete %1 from the Library");
    }
    if (change.what == What::Replace) {
        title = QT_TRANSLATE_NOOP("LibraryStep", "Push %1 Back to the Library");
    }
    return QCoreApplication::translate("LibraryStep", title).arg(change.Described());
}

}  // namespace

LibraryEdit LibraryEdit::Reversed() const
{
    LibraryEdit reversed = *this;
    switch (what) {
    case What::Add:
        reversed.what = What::Remove;
        break;
    case What::Remove:
        reversed.what = What::Add;
        break;
    case What::Rename:
        std::swap(reversed.name, reversed.before);
        break;
    case What::Describe:
        std::swap(reversed.details, reversed.detailsBefore);
        break;
    case What::Replace:
        reversed.contents =
            std::make_shared<EntryReplacement>(EntryReplacement{contents->after, contents->before});
        break;
    }
    return reversed;
}

QString LibraryEdit::Described() const
{
    return ids.size() > 1 ? QLocale().toString(static_cast<qulonglong>(ids.size()))
                          : QString::fromStdString(name);
}

LibraryStep::LibraryStep(LibraryEdit change, Make make)
    : m_change(std::move(change)), m_make(std::move(make))
{
    setText(StepTitle(m_change));
}

void LibraryStep::undo()
{
    m_made = false;
    setObsolete(!m_make(m_change.Reversed()));
}

void LibraryStep::redo()
{
    // Pushing a step calls this too, with the change already made.
    if (!m_made) {
        m_made = true;
        setObsolete(!m_make(m_change));
    }
}

}  // namespace studio
