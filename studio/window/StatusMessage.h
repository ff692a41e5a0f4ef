#pragma once

#include <QLabel>
#include <QTimer>

namespace studio {

/// What just happened, for a while; then what holds all the time.
class StatusMessage : public QLabel {
    Q_OBJECT

public:
    explicit StatusMessage(QWidget* parent);

    void Show(const QString& message);
    void SetLasting(const QString& text);

private:
    void Put(const QString& text);

    QTimer m_age;
    QString m_lasting;
};

}  // namespace studio
