#pragma once

// A raytracer that the product does not have: its row and its scene writer are all it takes.

#include "Raytracers.h"
#include "Testing.h"

namespace CorvexTest {

using namespace CorvexMaterial;

inline CorvexDB::CommandLine ThirdLine(const RenderTask& task)
{
    return {{},
            task.program,
            {task.scene, task.picture, std::to_string(task.size.width),
             std::to_string(task.size.height)},
            {}};
}

inline RenderStart ThirdStart(const RenderTask& task, CorvexDB::ApplicationState& /*state*/)
{
    return {ThirdLine(task), {}, {"third"}};
}

inline constexpr auto kThird = static_cast<CorvexDB::Raytracer>(2);
inline constexpr std::array kNotOfThird{RaytraceOption::Metallic};

inline const std::vector<RaytracerRow>& RowsWithThird()
{
    static const std::vector<RaytracerRow> kRows = [] {
        std::vector<RaytracerRow> rows(Raytracers().begin(), Raytracers().end());
        RaytracerRow third = rows.back();
        third.kind = kThird;
        third.word = "third";
        third.name = "Third";
        third.program.locationKey = "ThirdLocation";
        third.check.notFound = "Is there a third?";
        third.scene.suffix = "3rd";
        third.scene.pictureSuffix = "ppm";
        third.scene.tiff = TiffRule::Any;
        third.panelStart = ThirdStart;
        third.plainStart = ThirdLine;
        third.cannotShow = kNotOfThird;
        rows.push_back(third);
        return rows;
    }();
    return kRows;
}

/// A program for it, which makes a black picture of every scene with shapes.
inline constexpr const char* kThirdProgram =
    "#!/bin/sh\ngrep -q shapes \"$1\" || exit 7\n"
    "(printf 'P6 %d %d 255\\n' $3 $4; head -c $(($3 * $4 * 3)) /dev/zero) > \"$2\"\n";

}  // namespace CorvexTest
