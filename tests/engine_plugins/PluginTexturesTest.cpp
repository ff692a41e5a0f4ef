#include "FakeMaterialPlugin.h"

#include "Frame.h"
#include "PluginFolder.h"
#include "PluginMaterials.h"
#include "PluginTextures.h"
#include "TextureCache.h"
#include <CorvexMaterial/Status.h>

#include <semaphore>

namespace studio {
namespace {

constexpr int kPreview = 16;
constexpr int kFull = 64;

class Textures : public testing::Test {
protected:
    Textures() { folder.Add(fake, "fake.so"); }

    /// Asks as a view does, again on every `Ready`, until this size is there.
    PluginTexture Await(float level, int size)
    {
        PluginTexture found;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                found = textures.Find("Fake", {level});
                return found.color.width() == size && Grey(found) == level;
            },
            5000));
        return found;
    }
    static float Grey(const PluginTexture& texture)
    {
        return texture.color.isNull() ? -1.0F
                                      : static_cast<float>(texture.color.pixelColor(0, 0).red());
    }

    FakeMaterialPlugin fake;
    PluginFolder folder{{}};
    PluginTextures textures{folder, {kPreview, kFull}};
};

TEST_F(Textures, APreviewComesFirstAndTheFullSizeOnce)
{
    const PluginTexture preview = Await(100, kPreview);
    EXPECT_EQ(preview.bump.width(), kPreview);
    const PluginTexture full = Await(100, kFull);
    EXPECT_NE(full.key, preview.key);
    EXPECT_EQ(fake.drawings, 2);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(textures.Find("Fake", {100}).key, full.key);
    }
    // Values that the plug-in cannot tell apart are one change.
    EXPECT_EQ(textures.Find("Fake", {100.2F, 5, 6}).key, full.key);
    QTest::qWait(0);
    EXPECT_EQ(fake.drawings, 2);
}

TEST_F(Textures, ADragFinishesOnlyTheValuesThatStay)
{
    std::atomic<int> fullSizes = 0;
    fake.generate = [&](const CorvexPlugin::Request& request, CorvexPlugin::Texture& texture) {
        fullSizes += request.width == kFull ? 1 : 0;
        FakeMaterialPlugin::Plain(request, texture);
    };
    for (int level = 0; level < 60; ++level) {
        static_cast<void>(Await(static_cast<float>(level), kPreview));
    }
    static_cast<void>(Await(59, kFull));
    // A few more are finished where a busy machine pauses the drag.
    EXPECT_LT(fullSizes, 20);
}

TEST_F(Textures, AStandInOfTheSamePluginIsShownUntilASlowOneIsReady)
{
    const PluginTexture first = Await(10, kFull);
    std::counting_semaphore<> mayGoOn(0);
    std::atomic<int> previews = 0;
    fake.generate = [&](const CorvexPlugin::Request& request, CorvexPlugin::Texture& texture) {
        previews += request.width == kPreview ? 1 : 0;
        mayGoOn.acquire();
        FakeMaterialPlugin::Plain(request, texture);
    };
    QElapsedTimer clock;
    clock.start();
    for (int level = 20; level < 30; ++level) {
        EXPECT_EQ(textures.Find("Fake", {static_cast<float>(level)}).key, first.key);
    }
    EXPECT_LT(clock.elapsed(), 1000) << "nobody waits for a slow plug-in";
    mayGoOn.release(100);
    // All of it, because the worker must not outlive what it waits for.
    static_cast<void>(Await(29, kFull));
    EXPECT_EQ(previews, 2) << "of what waited for the first one, only the latest is drawn";
}

TEST_F(Textures, AnUnfinishedFullSizeGivesWayToNewValues)
{
    std::atomic<bool> begun = false;
    fake.generate = [&](const CorvexPlugin::Request& request, CorvexPlugin::Texture& texture) {
        if (request.width == kFull && request.values[0] == 1.0F) {
            begun = true;
            while (!request.isCancelled()) {
                std::this_thread::yield();
            }
            return;
        }
        FakeMaterialPlugin::Plain(request, texture);
    };
    static_cast<void>(Await(1, kPreview));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return !textures.Find("Fake", {1}).color.isNull() && begun; }, 5000));
    static_cast<void>(Await(2, kFull));
}

TEST_F(Textures, AFailingPluginIsReportedOnceAndGivesNoTexture)
{
    QSignalSpy refused(&textures, &PluginTextures::Refused);
    fake.generate = [](const auto&, CorvexPlugin::Texture&) { throw std::runtime_error("lost"); };
    for (int level = 0; level < 3; ++level) {
        const int before = fake.drawings;
        EXPECT_TRUE(textures.Find("Fake", {static_cast<float>(level)}).color.isNull());
        EXPECT_TRUE(QTest::qWaitFor([&] { return fake.drawings == before + 1; }, 5000));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return refused.count() > 0; }, 5000));
    EXPECT_TRUE(refused[0][0].toString().contains("fake.so"));
    EXPECT_THROW(static_cast<void>(textures.Produce("Fake", {9})), CorvexMaterial::Error);
    fake.generate = FakeMaterialPlugin::Plain;
    static_cast<void>(Await(200, kFull));
    EXPECT_EQ(refused.count(), 1);
}

TEST_F(Textures, ProducingWaitsForTheFullSizeAndSharesIt)
{
    const PluginTexture produced = textures.Produce("Fake", {50});
    EXPECT_EQ(produced.color.width(), kFull);
    EXPECT_EQ(textures.Find("Fake", {50}).key, produced.key);
    EXPECT_EQ(fake.drawings, 1);
    EXPECT_EQ(textures.Find("Unknown", {50}).key, 0U);
    EXPECT_THROW(static_cast<void>(textures.Produce("Unknown", {})), CorvexMaterial::Error);
}

TEST_F(Textures, HolesAreKnown)
{
    for (const float alpha : {1.0F, 0.0F}) {
        fake.generate = [alpha](const auto& request, auto& texture) {
            CorvexPlugin::Fill(request, CorvexPlugin::Relief::None, texture, [&](float, float) {
                return CorvexPlugin::Point{{1.0F, 1.0F, 1.0F}, alpha, 0.0F};
            });
        };
        CorvexDB::udtMaterial material;
        material.Plugin = "Fake";
        material.PluginParameters = {100.0F + alpha};
        Frame frame;
        frame.items.emplace_back().material = std::make_shared<CorvexDB::udtMaterial>(material);
        PluginMaterials(textures).CompleteNow(frame);
        ASSERT_NE(frame.items[0].generatedColor, nullptr);
        EXPECT_EQ(frame.items[0].generatedColor->hasAlpha, alpha == 0.0F);
    }
}

TEST_F(Textures, MoreThanFitComeToRestSmallerAndAreProducedWhole)
{
    constexpr int kFitting = 8;
    constexpr int kVisible = 20;
    constexpr int kLarge = 256;
    PluginTextures few(folder, {kPreview, kLarge, qsizetype{5} * kLarge * kLarge * kFitting});
    const auto sees = [&](int count, int size) {
        bool all = true;
        for (int level = 0; level < count; ++level) {
            const PluginTexture found = few.Find("Fake", {static_cast<float>(level)});
            all = all && found.color.width() == size && Grey(found) == static_cast<float>(level);
        }
        few.EndRound();
        return all;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return sees(kFitting, kLarge); }, 10000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sees(kVisible, kLarge / 2); }, 10000));
    const int drawings = fake.drawings;
    for (int i = 0; i < 50; ++i) {
        EXPECT_TRUE(sees(kVisible, kLarge / 2));
        QTest::qWait(1);
    }
    EXPECT_EQ(fake.drawings, drawings);
    for (const float level : {3.0F, 200.0F}) {
        const PluginTexture whole = few.Produce("Fake", {level});
        EXPECT_EQ(whole.color.width(), kLarge);
        EXPECT_EQ(Grey(whole), level);
    }
    EXPECT_TRUE(sees(kVisible, kLarge / 2));
}

}  // namespace
}  // namespace studio
