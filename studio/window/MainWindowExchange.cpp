#include "LibraryDesk.h"
#include "MainWindow.h"
#include "MaterialExchange.h"
#include "StudioHost.h"

namespace studio {

void MainWindow::ConnectExchange()
{
    connect(m_exchange, &MaterialExchange::Refused, this, [this](const QString& message) {
        Tell(message, CorvexMaterial::PromptIcon::Exclamation);
    });
    connect(m_exchange, &MaterialExchange::Imported, this, [this](const LibraryChange& change) {
        if (change.ids.empty()) {
            return;
        }
        m_desk->Record(LibraryKind::Materials, change);
        m_host.Browsers().ShowAgain(LibraryKind::Materials, change.ids.back());
    });
}

}  // namespace studio
