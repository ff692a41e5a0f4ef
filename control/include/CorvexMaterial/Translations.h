#pragma once

#include <CorvexMaterial/Export.h>

#include <QLocale>

namespace CorvexMaterial {

/// Installs the texts of the control, and of the studio's parts, in the first language of the
/// locale that there is; English otherwise. Call it once, after the QApplication was made and
/// before the first widget. The fixed messages stay English, and so does all that is stored. What
/// Qt says itself is in a file of Qt's own, which is the host's to load. Returns whether there is
/// another language than English for the locale.
CORVEX_EXPORT bool InstallTranslations(const QLocale& locale = QLocale());

}  // namespace CorvexMaterial
