#include "LibraryDrag.h"
#include "LibraryToolTip.h"
#include "SampleEntries.h"
#include "Testing.h"

#include <QMimeData>
#include <QUrl>

namespace {

using BrowserTest::SampleLibraries;

TEST(LibraryDrag, MaterialArrivesAsItWas)
{
    SampleLibraries libraries;
    auto file = libraries.Materials("Drag.cvm", {});
    studio::NamedMaterial ruby{"Ruby <b>&", {}};
    ruby.material.Color = 0x2010E0;
    ruby.material.Textures.bump = libraries.PathOf("Textures/bump.png");
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

TEST(LibraryDrag, OnlyImageFilesAreTextures)
{
    struct Case {
        const char* url;
        bool isTexture;
    };
    for (const Case& row :
         {Case{"file:///t/oak.PNG", true}, Case{"file:///t/oak.tga", true},
          Case{"file:///t/teapot.obj", false}, Case{"https://host/oak.png", false}}) {
        QMimeData data;
        data.setUrls({QUrl(QLatin1String(row.url))});
        EXPECT_EQ(!studio::DraggedTexture(data).isEmpty(), row.isTexture) << row.url;
        EXPECT_FALSE(studio::DraggedMaterial(data).has_value());
    }
}

TEST(LibraryDrag, SeveralFilesAreNoTexture)
{
    QMimeData data;
    data.setUrls({QUrl("file:///t/oak.png"), QUrl("file:///t/elm.png")});
    EXPECT_TRUE(studio::DraggedTexture(data).isEmpty());
}

TEST(LibraryToolTip, SaysOfATextureThatItIsMissingOnlyWhenItIs)
{
    const SampleLibraries libraries;
    const std::string path = libraries.PathOf("Tips.cvt");
    studio::LibraryFile::Create(path, studio::LibraryKind::Textures);
    auto file = studio::LibraryFile::Open(path, studio::LibraryKind::Textures);
    for (const std::string& texture : {path, path + ".png"}) {
        file.Add(studio::EntryOfTexture(texture, studio::FolderOf(path)));
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
