#include "RaytraceFlow.h"

#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "MaterialEditor.h"
#include "PreviewPanel.h"
#include "SurfacePanel.h"
#include "TexturePage.h"
#include "frmMaterialExtended.h"
#include <CorvexMaterial/IMaterial.h>
#include <CorvexMaterial/Looks.h>
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/SimulationTexture.h>
#include <CorvexMaterial/WarningCatalogue.h>

#include <QAbstractButton>
#include <QPointer>

#include <array>

namespace CorvexMaterial {

namespace {

/// With their factory values they show the picture of a predefined material as it is.
constexpr std::array kInThePicture{kTints[0], kTints[1], Attribute::Specular};

class ButtonOff {
public:
    explicit ButtonOff(QAbstractButton& button) : m_button(button), m_focus(button.hasFocus())
    {
        m_button.setEnabled(false);
    }
    ~ButtonOff()
    {
        m_button.setEnabled(true);
        if (m_focus) {
            m_button.setFocus();
        }
    }
    ButtonOff(const ButtonOff&) = delete;
    ButtonOff& operator=(const ButtonOff&) = delete;

private:
    QAbstractButton& m_button;
    bool m_focus;
};

}  // namespace

RaytraceFlow::RaytraceFlow(MaterialEditor& editor, Platform& platform, IMaterial& control,
                           QWidget& widget)
    : m_editor(editor), m_platform(platform), m_control(control), m_widget(widget),
      m_raytrace(editor.HostParts(), platform, &widget),
      m_wait(platform.processes, editor.Form().Preview().Viewport().Widget())
{
}

CorvexViewport::PixelSize RaytraceFlow::Prepare()
{
    CorvexViewport::Viewport& viewport = m_editor.Form().Preview().Viewport();
    viewport.PrepareRaytracedPicture();
    return viewport.Size();
}

void RaytraceFlow::RaytracePreview()
{
    const ButtonOff buttonOff(m_editor.Form().Preview().RaytraceButton());
    if (!m_raytrace.CheckRaytracer()) {
        return;
    }
    m_raytrace.ReportingFailure([this] {
        const CorvexViewport::PixelSize size = Prepare();
        CorvexViewport::Viewport& viewport = m_editor.Form().Preview().Viewport();
        const std::int32_t antialias = m_editor.HostParts().applicationState.AntialiasChoice();
        m_raytrace.Render(
            {viewport.Scene(), CorvexSG::RaytraceView::Scene, size, antialias, &m_wait},
            [&viewport](const std::string& bitmap) { viewport.ShowBitmap(bitmap); });
    });
}

void RaytraceFlow::WithAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes,
                                  const std::function<void(CorvexSG::Scene&)>& use)
{
    /// Puts the panel's own attributes back on the shape, whatever happened.
    class Borrowed {
    public:
        Borrowed(MaterialEditor& editor, const CorvexDB::cdtRayTraceMaterialAttributes& other)
            : m_editor(editor), m_own(editor.Attributes().RayTrace())
        {
            m_editor.Attributes().RayTrace() = other;
        }
        ~Borrowed()
        {
            m_editor.Attributes().RayTrace() = m_own;
            m_editor.Guard()("ApplyShapeMaterial", [this] { m_editor.ApplyToPreview(); });
        }
        Borrowed(const Borrowed&) = delete;
        Borrowed& operator=(const Borrowed&) = delete;

    private:
        MaterialEditor& m_editor;
        CorvexDB::cdtRayTraceMaterialAttributes m_own;
    };

    const Borrowed borrowed(m_editor, attributes);
    m_editor.ApplyToPreview();
    use(m_editor.Preview().Scene());
}

std::shared_ptr<CorvexSG::Shape> RaytraceFlow::NewShape()
{
    return m_editor.Preview().NewShape(m_platform.library.Folder(),
                                       m_editor.Attributes().PreviewPrimitive());
}

void RaytraceFlow::EditAttributes()
{
    m_editor.RequestWarning(RowOf(WarningId::MaterialExtended).text,
                            RowOf(WarningId::MaterialExtended).key);
    const QPointer<frmMaterialExtended> dialog =
        new frmMaterialExtended({m_editor.Guard(), m_editor.HostParts(), m_platform, *this},
                                m_editor.Gatherer().Whole(), &m_widget);
    dialog->put_cdtRayTraceMaterialAttributes(m_editor.Attributes().RayTrace());
    dialog->ShowDifferences(m_editor.Differences());
    dialog->exec();
    if (!dialog) {
        return;  // the host has closed the control, and this object with it
    }
    const std::unique_ptr<frmMaterialExtended> closed(dialog);
    TouchedRows touched;
    m_editor.EditAtOnce(touched, [&] {
        if (closed->OKClicked()) {
            const CorvexDB::udtMaterial before = m_editor.Attributes().Record();
            Take(*closed);
            touched = RowsThatDiffer(before, m_editor.Attributes().Record());
            touched.insert(touched.end(), closed->Touched().begin(), closed->Touched().end());
        }
    });
}

void RaytraceFlow::Take(const frmMaterialExtended& dialog)
{
    const CorvexDB::cdtRayTraceMaterialAttributes& attributes =
        dialog.get_cdtRayTraceMaterialAttributes();
    const bool changed = m_editor.Attributes().RayTrace() != attributes;
    m_editor.Attributes().RayTrace() = attributes;
    const std::string& texture = dialog.SimulationTexture();
    TexturePage& textures = m_editor.Form().Attributes().Channels().Textures();
    const std::string shown = textures.File(TextureLayer::Primary);
    if ((changed || !texture.empty()) && IsSimulationTexture(shown)) {
        PutBack(shown);  // it stands for other attributes than these
    }
    if (!texture.empty()) {
        ShowAsRendered(texture);
    }
    Require(m_control.put_lRaytraceColorPatternType(attributes.ColorPattern));
    Require(m_control.put_lRaytracePredefinedType(attributes.PredefinedType));
    Require(m_control.put_lRaytraceType(attributes.MaterialType));
    if (!texture.empty()) {
        Notice(attributes);
    }
}

// The picture of a predefined material holds its colour and shine; the panel's would be put on top
// of them. That of a pattern holds the pattern alone.
void RaytraceFlow::ShowAsRendered(const std::string& texture)
{
    PanelAttributes& attributes = m_editor.Attributes();
    TexturePage& textures = m_editor.Form().Attributes().Channels().Textures();
    Replaced& replaced = m_replaced[texture];
    replaced = {textures.File(TextureLayer::Primary), {}};
    textures.SetFile(TextureLayer::Primary, texture);
    if (!IsPredefined(attributes.RayTrace())) {
        return;
    }
    for (const Attribute attribute : kInThePicture) {
        replaced.values.emplace_back(attribute, attributes.TextOf(attribute));
        attributes.Show(attribute, std::string(FactoryText(attribute)));
    }
}

// A value that was changed since is the user's own.
void RaytraceFlow::PutBack(const std::string& texture)
{
    const auto known = m_replaced.find(texture);
    const Replaced replaced = known != m_replaced.end() ? known->second : Replaced{};
    m_editor.Form().Attributes().Channels().Textures().SetFile(TextureLayer::Primary,
                                                               replaced.texture);
    for (const auto& [attribute, text] : replaced.values) {
        if (m_editor.Attributes().TextOf(attribute) == FactoryText(attribute)) {
            m_editor.Attributes().Show(attribute, text);
        }
    }
}

void RaytraceFlow::Notice(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    const WarningRow& row = RowOf(WarningId::RaytraceSimulation);
    m_editor.RequestWarning(IsPredefined(attributes) ? row.otherText : row.text, row.key);
}

bool RaytraceFlow::SimulationTextureActive() const
{
    const CorvexDB::cdtRayTraceMaterialAttributes& attributes = m_editor.Attributes().RayTrace();
    const std::string& primary =
        m_editor.Form().Attributes().Channels().Textures().File(TextureLayer::Primary);
    return IsPredefined(attributes) ? !primary.empty()
                                    : attributes.ColorPattern != 0 && IsSimulationTexture(primary);
}

void RaytraceFlow::FollowAttributes()
{
    // A predefined material is simulated by a picture; its own amounts would spoil it.
    const bool editable = !IsPredefined(m_editor.Attributes().RayTrace());
    AttributePanel& panel = m_editor.Form().Attributes();
    panel.Surface().SetAmountsEnabled(editable);
    panel.Channels().SetChannelsEnabled(editable);
    panel.Channels().SetPrimaryLocked(SimulationTextureActive());
}

}  // namespace CorvexMaterial
