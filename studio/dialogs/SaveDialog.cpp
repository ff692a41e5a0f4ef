#include "SaveDialog.h"

#include <QFileDialog>

namespace studio {
namespace {

QString SuffixOf(const QString& filter)
{
    return filter.section(QStringLiteral("*."), -1).section(u')', 0, 0);
}

}  // namespace

QString AskForTarget(QWidget& parent, const SaveQuestion& question)
{
    QFileDialog dialog(&parent, question.title, question.folder);
    // A desktop's own dialog would ask about the name before it has its extension.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(question.filters);
    const auto follow = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(SuffixOf(filter));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    follow(dialog.selectedNameFilter());
    if (!question.name.isEmpty()) {
        dialog.selectFile(question.name + u'.' + dialog.defaultSuffix());
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace studio
