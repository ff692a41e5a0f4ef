#include "Raytracers.h"

#include "RaytracerTable.h"
#include <CorvexMaterial/EnumEnd.h>

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr bool RowsFollowKinds()
{
    for (std::size_t i = 0; i < kRaytracerRows.size(); ++i) {
        if (kRaytracerRows[i].kind != static_cast<CorvexDB::Raytracer>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(RowsFollowKinds() && kRaytracerRows.size() == CorvexDB::kRaytracerCount &&
                  EndsAt<CorvexDB::Raytracer, kRaytracerRows.size()>(),
              "RaytracerTable.h: a raytracer without a row, or kRaytracerCount too small");

}  // namespace

std::span<const RaytracerRow> Raytracers()
{
    return kRaytracerRows;
}

const RaytracerRow& RowOf(CorvexDB::Raytracer kind, std::span<const RaytracerRow> rows)
{
    const auto found = std::ranges::find(rows, kind, &RaytracerRow::kind);
    return found != rows.end() ? *found : rows.front();
}

std::string SceneNames(std::string_view name, std::string_view between)
{
    std::string names;
    for (const RaytracerRow& row : Raytracers()) {
        names.append(names.empty() ? std::string_view() : between).append(name);
        names.append(".").append(row.scene.suffix);
    }
    return names;
}

bool Honours(const RaytracerRow& row, RaytraceOption option)
{
    return std::ranges::find(row.cannotShow, option) == row.cannotShow.end();
}

}  // namespace CorvexMaterial
