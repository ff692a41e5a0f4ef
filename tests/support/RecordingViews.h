#pragma once

#include "RecordingScene.h"
#include <CorvexMaterial/CorvexCommon.h>
#include <CorvexMaterial/CorvexEditport.h>
#include <CorvexMaterial/CorvexViewport.h>

#include <QPointer>

namespace CorvexTest {

class RecordingViewport : public QWidget, public Recording<CorvexViewport::Viewport> {
public:
    RecordingViewport(CallLog& log, QWidget* parent) : QWidget(parent), Recording(log), m_scene(log)
    {
    }

    QWidget& Widget() override { return *this; }
    CorvexSG::Scene& Scene() override
    {
        m_log.Enter("Viewport.Scene");
        return m_scene;
    }
    void Prepare() override { m_log.Enter("Viewport.Prepare"); }
    void Draw() override { m_log.Enter("Viewport.Draw"); }
    void SetBackColor(CorvexMaterial::Colour colour) override
    {
        m_log.Enter("Viewport.SetBackColor", std::to_string(colour));
    }
    void SetListener(CorvexViewport::ViewportListener* newListener) override
    {
        listener = newListener;
        m_log.Enter("Viewport.SetListener", newListener == nullptr ? "none" : "control");
    }
    CorvexViewport::PixelSize Size() override
    {
        return m_log.Answer("Viewport.Size", CorvexViewport::PixelSize{256, 256});
    }
    void PrepareRaytracedPicture() override { m_log.Enter("Viewport.PrepareRaytracedPicture"); }
    void ShowBitmap(const std::string& path) override { m_log.Enter("Viewport.ShowBitmap", path); }
    void ResetDevice() override { m_log.Enter("Viewport.ResetDevice"); }

    [[nodiscard]] RecordingScene& TheScene() { return m_scene; }
    CorvexViewport::ViewportListener* listener = nullptr;

private:
    RecordingScene m_scene;
};

class RecordingViewports : public Recording<CorvexViewport::ViewportFactory> {
public:
    using Recording::Recording;

    CorvexViewport::Viewport* CreateViewport(QWidget* parent) override
    {
        m_log.Enter("ViewportFactory.CreateViewport");
        auto* viewport = new RecordingViewport(m_log, parent);
        made.emplace_back(viewport);
        return viewport;
    }

    /// All that were made; null where the widget is gone.
    std::vector<QPointer<QWidget>> made;
};

class RecordingEditport : public QWidget, public Recording<CorvexEditport::Editport> {
public:
    RecordingEditport(CallLog& log, QWidget* parent, std::string name)
        : QWidget(parent), Recording(log), m_name(std::move(name))
    {
    }

    QWidget& Widget() override { return *this; }
    void ShowItems(std::int32_t count) override { Enter("Editport.ShowItems", count); }
    void Clear() override { m_log.Enter("Editport.Clear", m_name); }
    std::int32_t SelectedIndex() override
    {
        return m_log.Answer("Editport.SelectedIndex", selected, m_name);
    }
    void ReleaseSelection() override { m_log.Enter("Editport.ReleaseSelection", m_name); }
    void Redraw() override { m_log.Enter("Editport.Redraw", m_name); }
    void SetBackColor(CorvexMaterial::Colour colour) override
    {
        Enter("Editport.SetBackColor", colour);
    }
    void SetListener(CorvexEditport::EditportListener* newListener) override
    {
        listener = newListener;
        m_log.Enter("Editport.SetListener", m_name);
    }

    void ScrollFromOutside() override { m_log.Enter("Editport.ScrollFromOutside", m_name); }
    void ScrollTo(std::int32_t position) override { Enter("Editport.ScrollTo", position); }
    QWidget* Companion() override
    {
        return m_log.Answer<QWidget*>("Editport.Companion", nullptr, m_name);
    }

    CorvexEditport::EditportListener* listener = nullptr;
    std::int32_t selected = -1;

private:
    void Enter(const char* name, std::int32_t number)
    {
        m_log.Enter(name, m_name + " " + std::to_string(number));
    }

    std::string m_name;
};

class RecordingEditports : public Recording<CorvexEditport::EditportFactory> {
public:
    using Recording::Recording;

    CorvexEditport::Editport* CreateEditport(QWidget* parent,
                                             CorvexEditport::BrowserKind kind) override
    {
        const bool materials = kind == CorvexEditport::BrowserKind::Materials;
        const std::string name = materials ? "materials" : "textures";
        m_log.Enter("EditportFactory.CreateEditport", name);
        return new RecordingEditport(m_log, parent, name);
    }
};

class RecordingNumbers : public Recording<CorvexCommon::NumericValidation> {
public:
    using Recording::Recording;

    std::string Accept(const std::string& text,
                       const CorvexCommon::NumericRange& /*range*/) override
    {
        return m_log.Answer("NumericValidation.Accept", text, text);
    }
};

}  // namespace CorvexTest
