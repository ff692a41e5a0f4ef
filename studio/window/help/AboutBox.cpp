#include "AboutBox.h"

#include "StudioIcon.h"
#include "Tr.h"

#include <QMessageBox>

namespace studio {

void ShowAbout(QWidget& window)
{
    auto* box = new QMessageBox(&window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(Tr("About Corvex Studio"));
    box->setIconPixmap(StudioIcon().pixmap(64));
    box->setTextFormat(Qt::RichText);
    box->setText(Tr("<p style='font-size:large'><b>Corvex Studio %1</b></p>"
                    "<p>Materials for 3D models: edit, see them at once, render.<br>"
                    "A complete host of the Corvex material panel.</p>"
                    "<p>Qt %2 · MIT licence</p>")
                     .arg(QStringLiteral(CORVEX_VERSION), QLatin1String(qVersion())));
    box->open();
}

}  // namespace studio
