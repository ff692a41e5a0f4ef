#pragma once

#include "host/CorvexCommon.h"
#include "host/CorvexEditport.h"
#include "host/CorvexViewport.h"
#include "tests/support/CallLog.h"
#include "tests/support/RecordingScene.h"

#include <QPointer>
#include <QWidget>

namespace CorvexTest {

class RecordingViewport : public QWidget, public CorvexViewport::Viewport {
public:
    RecordingViewport(CallLog& log, QWidget* parent) : QWidget(parent), m_log(log), m_scene(log) {}

    QWidget& Widget() override { return *this; }
    CorvexSG::Scene& Scene() override;
    void Prepare() override { m_log.Enter("Viewport.Prepare"); }
    void Draw() override { m_log.Enter("Viewport.Draw"); }
    void SetBackColor(CorvexMaterial::Colour colour) override;
    void SetListener(CorvexViewport::ViewportListener* newListener) override;
    CorvexViewport::PixelSize Size() override;
    void PrepareRaytracedPicture() override { m_log.Enter("Viewport.PrepareRaytracedPicture"); }
    void ShowBitmap(const std::string& path) override { m_log.Enter("Viewport.ShowBitmap", path); }
    void ResetDevice() override { m_log.Enter("Viewport.ResetDevice"); }

    [[nodiscard]] RecordingScene& TheScene() { return m_scene; }
    CorvexViewport::ViewportListener* listener = nullptr;

private:
    CallLog& m_log;
    RecordingScene m_scene;
};

class RecordingViewports : public CorvexViewport::ViewportFactory {
public:
    explicit RecordingViewports(CallLog& log) : m_log(log) {}

    CorvexViewport::Viewport* CreateViewport(QWidget* parent) override;

    /// The last one made; null when its widget is gone.
    QPointer<QWidget> last;

private:
    CallLog& m_log;
};

class RecordingEditport : public QWidget, public CorvexEditport::Editport {
public:
    RecordingEditport(CallLog& log, QWidget* parent, std::string name);

    QWidget& Widget() override { return *this; }
    void ShowItems(std::int32_t count) override;
    void Clear() override { m_log.Enter("Editport.Clear", m_name); }
    std::int32_t SelectedIndex() override;
    void ReleaseSelection() override { m_log.Enter("Editport.ReleaseSelection", m_name); }
    void Redraw() override { m_log.Enter("Editport.Redraw", m_name); }
    void SetBackColor(CorvexMaterial::Colour colour) override;
    void SetListener(CorvexEditport::EditportListener* newListener) override;

    void ScrollFromOutside() override { m_log.Enter("Editport.ScrollFromOutside", m_name); }
    void ScrollTo(std::int32_t position) override;
    QWidget* Companion() override;

    CorvexEditport::EditportListener* listener = nullptr;
    std::int32_t selected = -1;

private:
    CallLog& m_log;
    std::string m_name;
};

class RecordingEditports : public CorvexEditport::EditportFactory {
public:
    explicit RecordingEditports(CallLog& log) : m_log(log) {}

    CorvexEditport::Editport* CreateEditport(QWidget* parent,
                                             CorvexEditport::BrowserKind kind) override;

private:
    CallLog& m_log;
};

class RecordingNumbers : public CorvexCommon::NumericValidation {
public:
    explicit RecordingNumbers(CallLog& log) : m_log(log) {}

    std::string Accept(const std::string& text, const CorvexCommon::NumericRange& range) override;

private:
    CallLog& m_log;
};

}  // namespace CorvexTest
