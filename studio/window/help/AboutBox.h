#pragma once

class QWidget;

namespace studio {

void ShowAbout(QWidget& window);

}  // namespace studio
