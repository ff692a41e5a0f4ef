#include "FaultSteps.h"

namespace {

using namespace CorvexTest;
using CorvexMaterial::Status;

using EnabledStates = std::map<QString, bool>;

/// A library that could not be opened allows no changes until another one is.
bool ChangesOpenLibrary(const QWidget& widget)
{
    const QString name = widget.objectName();
    return name.endsWith("LibraryAdd") || name.endsWith("LibraryDelete");
}

EnabledStates StatesOf(ControlRig& rig)
{
    EnabledStates states;
    for (const QWidget* widget : rig.Control().findChildren<QWidget*>()) {
        if (!widget->objectName().isEmpty() && !ChangesOpenLibrary(*widget)) {
            states[widget->objectName()] = widget->isEnabled();
        }
    }
    return states;
}

class FaultLoop : public WithStartedControl {
protected:
    FaultLoop() { OfferPluginAndField(rig); }

    void Repeat(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            FailEachCallOf(step);
        }
    }

    /// Runs the step again and again, each time with its next call failing, until it has no more.
    void FailEachCallOf(const Step& step)
    {
        Prepare();
        const EnabledStates before = StatesOf(rig);
        Run(step);
        EXPECT_TRUE(rig.platform.prompts.shown.empty()) << step.name;
        const EnabledStates after = StatesOf(rig);
        for (std::size_t number = 0; FailOneCallOf(step, number, NextFault()); ++number) {
            const EnabledStates now = StatesOf(rig);
            EXPECT_TRUE(now == before || now == after) << step.name << ", call " << number;
            ExpectTheNextEditWorks();
        }
    }

    /// The kinds take turns: one place catches them all, and each of them hundreds of times.
    Fault NextFault() { return kFaults[m_faults++ % std::size(kFaults)]; }

    /// False when the step has no call of this number.
    bool FailOneCallOf(const Step& step, std::size_t number, Fault fault)
    {
        Prepare();
        rig.log.FailCall(number, fault);
        const auto status = Run(step);
        if (!rig.log.Failed()) {
            return false;
        }
        SCOPED_TRACE(step.name + " with failing " + *rig.log.FailedCall());
        EXPECT_NE(status.value_or(Status::Failed), Status::Success);
        EXPECT_LE(rig.platform.prompts.shown.size(), 1U);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        return true;
    }

    void Prepare()
    {
        if (!rig.Find<QWidget>("cmdMaterialLibraryAdd").isEnabled()) {
            rig.Control().LoadMaterialLibrary("Gems.cvm");
        }
        if (!rig.Find<QWidget>("cmdTextureLibraryAdd").isEnabled()) {
            rig.Control().LoadTextureLibrary("Gems.cvt");
        }
        rig.Control().put_bMaterialPanel(true);
        if (rig.Find<QComboBox>("cboPlugin").currentText() != "Marble" ||
            rig.Previewed().AlphaTest == 0 ||
            rig.Previewed().RayTrace != CorvexDB::cdtRayTraceMaterialAttributes()) {
            OfferPluginAndField(rig);
        }
        rig.Find<QTabBar>("tabChannels").setCurrentIndex(0);
        rig.log.Clear();
        rig.platform.prompts.shown.clear();
    }

    std::optional<Status> Run(const Step& step)
    {
        try {
            return step.act(rig);
        } catch (const std::logic_error&) {
            throw;  // the rig's own: a widget is missing, hidden or disabled
        } catch (...) {
            ADD_FAILURE() << "an exception came out of " << step.name;
            return std::nullopt;
        }
    }

    /// A list that was opened in vain must not go on showing what was not taken.
    void ExpectTheListShowsTheColour()
    {
        const QString shown = rig.List("cboColor").currentText();
        rig.Control().put_lVBColor(rig.Read(&CorvexMaterial::IMaterial::get_lVBColor));
        EXPECT_EQ(shown, rig.List("cboColor").currentText());
    }

    void ExpectTheNextEditWorks()
    {
        ExpectTheListShowsTheColour();
        Prepare();
        rig.Press("chkFlipV");
        EXPECT_EQ(rig.Changes(), 1U);
        EXPECT_EQ(rig.Previewed().WrapOrientationV, rig.Tick("chkFlipV").isChecked());
        EXPECT_TRUE(rig.platform.prompts.shown.empty());
    }

private:
    std::size_t m_faults = 0;
};

TEST_F(FaultLoop, EveryMemberReturnsAStatusAndLeavesAUsableControl)
{
    Repeat(Members());
}

TEST_F(FaultLoop, EveryWrittenPropertyReturnsAStatusAndLeavesAUsableControl)
{
    Repeat(Properties());
}

TEST_F(FaultLoop, EveryUserActionLeavesAUsableControl)
{
    const std::vector<Step> actions = UserActions(rig);
    EXPECT_GT(actions.size(), 70U);
    Repeat(actions);
}

TEST_F(FaultLoop, AFailedDisplayOfTheErrorIsNoFurtherError)
{
    ControlRig other;
    other.host.sceneGraph.missingMeshes = {"previewcube.x"};
    other.Create();
    other.Control().SetSceneDetails(other.host.sceneGraph);
    other.log.FailEach("Prompts.Show", Fault::UnknownObject);
    EXPECT_EQ(other.Control().InitializeMaterialPreviewScene(), Status::FileFailed);
}

/// The first and the last call of each name: a termination has well over a hundred calls.
std::set<std::size_t> CallsToFail(const CallLog& log)
{
    std::map<std::string, std::pair<std::size_t, std::size_t>> firstAndLast;
    for (std::size_t i = 0; i < log.Calls().size(); ++i) {
        const auto [row, added] = firstAndLast.try_emplace(log.Calls()[i].name, i, i);
        row->second.second = i;
    }
    std::set<std::size_t> numbers;
    for (const auto& [name, ends] : firstAndLast) {
        numbers.insert({ends.first, ends.second});
    }
    return numbers;
}

TEST_F(FaultLoop, TerminationAlwaysComesToItsEnd)
{
    rig.Restart();  // like the ones that follow
    rig.Terminate();
    const auto numbers = CallsToFail(rig.log);
    ASSERT_GE(numbers.size(), 6U);
    for (const std::size_t number : numbers) {
        rig.Start();
        rig.platform.prompts.shown.clear();
        rig.log.FailCall(number, NextFault());
        rig.Terminate();
        SCOPED_TRACE(rig.log.FailedCall().value_or("nothing"));
        EXPECT_TRUE(rig.log.Failed());
        EXPECT_EQ(rig.log.DetailsOf("Diagnostics.RecordEvent"),
                  (Texts{"Material instance terminating", "Material instance terminated"}));
        EXPECT_LE(rig.platform.prompts.shown.size(), 1U);
    }
}

TEST_F(FaultLoop, AControlThatCannotBeMadeLeavesNothingBehind)
{
    rig.Terminate();
    rig.log.Clear();
    rig.Create();
    const std::size_t calls = rig.log.Entered();
    rig.Terminate();
    ASSERT_GT(calls, 0U);
    for (std::size_t number = 0; number < calls; ++number) {
        rig.log.Clear();
        rig.log.FailCall(number, Fault::StandardException);
        try {
            rig.Create();
        } catch (const std::runtime_error&) {
            EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
        }
        EXPECT_TRUE(rig.log.Failed());
        rig.Terminate();
    }
    rig.Start();
    ExpectTheNextEditWorks();
}

}  // namespace
