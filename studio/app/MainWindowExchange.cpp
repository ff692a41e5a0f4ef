#include "studio/app/MainWindow.h"
#include "studio/app/MaterialExchange.h"

namespace studio {

void MainWindow::ConnectExchange()
{
    connect(m_exchange, &MaterialExchange::Refused, this, [this](const QString& message) {
        Tell(message, CorvexMaterial::PromptIcon::Exclamation);
    });
    // The panel counts the entries of a library when it opens it, and tells of problems itself.
    connect(m_exchange, &MaterialExchange::Imported, this, [this](const LibraryChange& change) {
        static_cast<void>(m_material->LoadMaterialLibrary(change.path));
    });
}

}  // namespace studio
