#pragma once

#include <QString>

class QDateTime;
class QWidget;

namespace studio {

enum class Unsaved { Save, Discard, Cancel };

/// Asks what is to become of the changes of a document that is about to go. The time is that of
/// the last saving, invalid for none.
[[nodiscard]] Unsaved AskAboutUnsaved(QWidget& window, const QString& name,
                                      const QDateTime& savedAt);

enum class ChangedByOthers { Overwrite, SaveAs, Cancel };

/// Asks what is to become of a file that another program has written since it was read, and of one
/// that is gone.
[[nodiscard]] ChangedByOthers AskAboutChangedByOthers(QWidget& window, const QString& name);
[[nodiscard]] ChangedByOthers AskAboutGone(QWidget& window, const QString& name);

/// "12 minutes ago".
[[nodiscard]] QString AgeText(qint64 seconds);

}  // namespace studio
