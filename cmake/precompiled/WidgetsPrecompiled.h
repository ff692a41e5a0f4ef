// The Qt headers that most of the control's sources use; never the module headers, they cost more
// than they save.
#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QDialog>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QObject>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QString>
#include <QTimer>
#include <QToolButton>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>
