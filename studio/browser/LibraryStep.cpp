#include "studio/browser/LibraryStep.h"

#include <QCoreApplication>

#include <utility>

namespace studio {
namespace {

QString StepTitle(const LibraryEdit& change)
{
    const char* title = QT_TRANSLATE_NOOP("LibraryStep", "Rename %1");
    if (change.what == LibraryEdit::What::Add) {
        title = QT_TRANSLATE_NOOP("LibraryStep", "Add %1 to the Library");
    } else if (change.what == LibraryEdit::What::Remove) {
        title = QT_TRANSLATE_NOOP("LibraryStep", "Delete %1 from the Library");
    }
    return QCoreApplication::translate("LibraryStep", title)
        .arg(QString::fromStdString(change.name));
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
    }
    return reversed;
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
