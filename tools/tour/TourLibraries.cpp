#include "TourLibraries.h"

#include "StudioApplicationState.h"
#include "TourStudio.h"
#include <CorvexMaterial/WarningCatalogue.h>

#include <QLineEdit>
#include <QListView>

namespace studio {
namespace {

void ClickFirst(const QListView& list)
{
    Expect(list.model()->rowCount() > 0, QStringLiteral("Nothing was found in the library."));
    const QModelIndex first = list.model()->index(0, 0);
    TourGuide::ClickAt(*list.viewport(), list.visualRect(first).center());
}

void ChooseMaterials(TourStudio& studio)
{
    struct Choice {
        const char* shape;
        const char* query;
        const char* picture;
    };
    constexpr std::array kChoices{Choice{"Vase", "celadon", "material-chosen"},
                                  Choice{"Ball", "lapis", "another-material"}};
    for (const Choice& choice : kChoices) {
        studio.ClickShape(choice.shape);
        studio.Guide().Type("searchMaterials", QLatin1String(choice.query));
        ClickFirst(studio.Guide().Find<QListView>("materialEntries"));
        Expect(!studio.ShapeNamed(choice.shape).Material().Textures.primary.empty(),
               QStringLiteral("The material did not reach the shape."));
        studio.Guide().Find<QLineEdit>("searchMaterials").clear();
        studio.Guide().Picture(QLatin1String(choice.picture));
    }
}

void Raytrace(TourStudio& studio)
{
    // Its hint waits for an answer.
    studio.Settings().Write({studio.Host().State().SettingsApplicationName(),
                             std::string(CorvexMaterial::kTipsSection), "POVRayConfiguration"},
                            "0");
    studio.Guide().Press("cmdPreview");
    studio.Guide().Picture(QStringLiteral("raytraced-preview"));
}

}  // namespace

void ShowLibraries(TourStudio& studio)
{
    CorvexMaterial::IMaterial& panel = studio.Window().Panel();
    panel.put_bMaterialPanel(false);
    panel.put_bMaterialLibraryPanel(true);
    for (int row = 0; row < 2; ++row) {
        studio.Guide().Press("cmdMaterialLibraryMore");
    }
    studio.Guide().Picture(QStringLiteral("material-library"));
    studio.Guide().Type("searchMaterials", QStringLiteral("has:bump"));
    studio.Guide().Picture(QStringLiteral("search"));
    ChooseMaterials(studio);
    if (studio.Host().State().RaytracerAvailable()) {
        Raytrace(studio);
    }
    panel.put_bMaterialLibraryPanel(false);
    panel.put_bTexturePanel(true);
    studio.Guide().Press("cmdTextureLibraryMore");
    studio.Guide().Picture(QStringLiteral("texture-library"));
}

}  // namespace studio
