#include "LibraryDrag.h"
#include "LibraryToolTip.h"
#include "SampleMaterials.h"
#include "StoredPath.h"
#include "TextureText.h"

#include <QMimeData>
#include <QUrl>

namespace {

using LibraryTest::TemporaryLibrary;

TEST(LibraryDrag, MaterialArrivesAsItWas)
{
    const TemporaryLibrary library;
    auto file = library.Open();
    studio::NamedMaterial ruby{"Ruby <b>&", {}};
    ruby.material.Color = 0x2010E0;
    ruby.material.Textures.bump = library.PathOf("Textures/bump.png");
    ruby.material.Plugin = "Marble";
    ruby.material.PluginParameters = {1.0F, 0.1F};
    file.Add(studio::EntryOfMaterial(ruby, studio::FolderOf(file.Path())));
    const auto data = studio::DraggedEntry(file, 0);
    const auto arrived = studio::DraggedMaterial(*data);
    ASSERT_TRUE(arrived.has_value());
    EXPECT_EQ(arrived->name, ruby.name);
    EXPECT_EQ(arrived->material, ruby.material);
    EXPECT_TRUE(studio::DraggedTexture(*data).isEmpty());
}

TEST(LibraryDrag, OnlyOneImageFileIsATexture)
{
    const auto isTexture = [](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        EXPECT_FALSE(studio::DraggedMaterial(data).has_value());
        return !studio::DraggedTexture(data).isEmpty();
    };
    EXPECT_TRUE(isTexture({QUrl("file:///t/oak.PNG")}));
    EXPECT_TRUE(isTexture({QUrl("file:///t/oak.tga")}));
    EXPECT_FALSE(isTexture({QUrl("file:///t/teapot.obj")}));
    EXPECT_FALSE(isTexture({QUrl("https://host/oak.png")}));
    EXPECT_FALSE(isTexture({QUrl("file:///t/oak.png"), QUrl("file:///t/elm.png")}));
}

TEST(LibraryToolTip, SaysOfATextureThatItIsMissingOnlyWhenItIs)
{
    const TemporaryLibrary library(studio::LibraryKind::Textures);
    auto file = library.Open();
    for (const std::string& texture : {library.Path(), library.PathOf("gone.png")}) {
        file.Add(studio::EntryOfTexture(texture, library.PathOf("")));
    }
    EXPECT_FALSE(studio::LibraryToolTipText(file, 0, {}).contains("(missing)"));
    EXPECT_TRUE(studio::LibraryToolTipText(file, 1, {}).contains("(missing)"));
}

TEST(LibraryDrag, GarbageInTheFormatIsNoMaterial)
{
    QMimeData data;
    data.setData(QStringLiteral("application/x-corvex-material"), "[1, 2");
    EXPECT_FALSE(studio::DraggedMaterial(data).has_value());
}

}  // namespace
