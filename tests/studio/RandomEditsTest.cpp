#include "MaterialCommand.h"
#include "ShapeHiding.h"
#include "StudioRig.h"

#include <functional>
#include <random>

namespace {

/// Edits of every kind, one after another, as a user who tries everything makes them.
class RandomEdits : public StudioTest::StartedStudio {
protected:
    using Scene = std::vector<studio::ShapeState>;

    RandomEdits()
    {
        const auto number = [this](const char* field) {
            return [this, field] { rig.Type(field, QString::number(Below(101))); };
        };
        const auto choice = [this](const char* list) {
            return [this, list] {
                const auto& box = rig.Shown<QComboBox>(list);
                rig.Choose(list, box.itemText(Below(box.count() - 1)));  // the last may ask
            };
        };
        const auto press = [this](const char* control) {
            return [this, control] { rig.Press(control); };
        };
        const auto trigger = [this](const char* action) {
            return [this, action] { rig.Trigger(QString::fromLatin1(action)); };
        };
        auto& hiding = rig.Window().Hiding();
        m_edits = {
            number("txtAmbient"),
            number("txtEmissive"),
            number("txtSpecular"),
            number("txtTransparency"),
            choice("cboColor"),
            choice("cboAlphaTest"),
            press("chkDoubleSided"),
            press("chkFlipU"),
            press("optWrapType_0"),
            press("optWrapType_2"),
            press("cmdMaterialResetDefaults"),
            trigger("Make Unique"),
            trigger("Apply to Selected"),
            [this, &hiding] { hiding.SetHidden(SomeShapes(), Below(2) == 0); },
            [this, &hiding] { hiding.SetLocked(SomeShapes(), Below(2) == 0); },
            [this, &hiding] { hiding.Isolate(SomeShapes()); },
            [&hiding] { hiding.ShowAll(); },
        };
    }

    int Below(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }

    studio::ShapeList SomeShapes()
    {
        studio::ShapeList shapes;
        for (const auto& shape : rig.Window().Scene().All()) {
            if (Below(3) == 0) {
                shapes.push_back(shape);
            }
        }
        return shapes;
    }

    Scene Now()
    {
        Scene scene;
        for (const auto& shape : rig.Window().Scene().All()) {
            scene.push_back(shape->State());
        }
        return scene;
    }

    /// An edit that changes nothing leaves the shape another copy of the same material.
    static bool IsSame(studio::ShapeState one, const studio::ShapeState& other)
    {
        if (!studio::IsSame(*one.applied.gathered, *other.applied.gathered)) {
            return false;
        }
        one.applied.gathered = other.applied.gathered;
        return one == other;
    }

    void Edit()
    {
        using namespace std::chrono_literals;
        rig.now += 2s;  // a step of its own
        if (Below(4) == 0) {
            rig.Window().Selected().Set(SomeShapes());
        }
        m_edits.at(static_cast<std::size_t>(Below(static_cast<int>(m_edits.size()))))();
    }

    std::mt19937 m_random{42};
    std::vector<std::function<void()>> m_edits;
};

TEST_F(RandomEdits, AreTakenBackAndDoneAgainExactly)
{
    constexpr int kEdits = 10'000;
    std::vector<Scene> after{Now()};
    for (int edit = 0; edit < kEdits; ++edit) {
        if (Below(10) == 0) {
            for (int back = Below(4); back > 0; --back) {
                History().undo();
            }
        }
        Edit();
        after.resize(static_cast<std::size_t>(History().index()));
        after.push_back(Now());
    }
    const auto steps = History().count();
    ASSERT_GT(steps, kEdits / 3);
    ASSERT_EQ(after.size(), static_cast<std::size_t>(steps) + 1);
    const auto isAsItWas = [&](int step) {
        History().setIndex(step);
        const Scene now = Now();
        for (std::size_t shape = 0; shape < now.size(); ++shape) {
            ASSERT_TRUE(IsSame(now[shape], after[static_cast<std::size_t>(step)][shape]))
                << now[shape].name << " at step " << step << " of " << steps << ", "
                << History().text(step).toStdString();
        }
    };
    for (int step = steps; step >= 0 && !HasFatalFailure(); --step) {
        isAsItWas(step);
    }
    for (int step = 0; step <= steps && !HasFatalFailure(); ++step) {
        isAsItWas(step);
    }
}

}  // namespace
