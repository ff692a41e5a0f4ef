#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

class QComboBox;
class QWidget;

namespace studio {

/// A step of the tour that did not do what it should.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// Throws when the fact does not hold.
void Expect(bool fact, const QString& otherwise);

/// Works on a window like a user: finds widgets by name and sends them key and mouse events.
class TourGuide {
public:
    /// Pictures are numbered from the given number. The window outlives the guide.
    TourGuide(QWidget& window, QString folder, int firstNumber = 1);

    template <typename Widget>
    Widget& Find(const char* name) const
    {
        auto* widget = qobject_cast<Widget*>(FindWidget(name));
        Expect(widget != nullptr, QStringLiteral("There is no %1.").arg(QLatin1String(name)));
        return *widget;
    }

    void Choose(const char* list, const QString& entry) const;
    /// Replaces the field's text, key by key.
    void Type(const char* field, const QString& text) const;
    void Press(const char* button) const;
    static void ClickAt(QWidget& widget, QPoint position, Qt::KeyboardModifiers modifiers = {});

    /// Waits for an announcement that the function starts; throws after some seconds.
    static void Await(const std::function<void(std::function<void()> arrived)>& start,
                      const QString& otherwise);
    /// Waits until every viewport has shown its last picture.
    void Settle() const;
    /// Settles, then writes `NN-name.png`.
    void Picture(const QString& name);
    /// The same for another window.
    void PictureOf(QWidget& window, const QString& name);

private:
    [[nodiscard]] QWidget* FindWidget(const char* name) const;

    QWidget& m_window;
    QString m_folder;
    int m_number;
};

}  // namespace studio
