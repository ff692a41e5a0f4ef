#include "RenderService.h"
#include "Drawing.h"
#include "GlContext.h"
#include <CorvexMaterial/Status.h>

#include <atomic>
#include <future>

using namespace drawing;
using CorvexMaterial::Status;
using studio::RenderResult;
using studio::RenderService;

namespace {

/// The system's device, which can be held back or refused.
struct Device {
    std::shared_future<void> open;  ///< waited for before a context is made
    std::atomic<int> refusals{0};   ///< so many contexts are refused
    std::atomic<int> made{0};
};

class TestProvider : public studio::GlContextProvider {
public:
    explicit TestProvider(Device& device)
        : m_device(device), m_system(studio::MakeGlContextProvider())
    {
    }

    std::unique_ptr<studio::GlContext> Create() override
    {
        if (m_device.open.valid()) {
            m_device.open.wait();
        }
        if (m_device.refusals > 0) {
            --m_device.refusals;
            throw CorvexMaterial::Error(Status::GraphicsFailed, "no device today");
        }
        ++m_device.made;
        return m_system->Create();
    }

private:
    Device& m_device;
    std::unique_ptr<studio::GlContextProvider> m_system;
};

studio::Frame Coloured(CorvexMaterial::Colour colour)
{
    studio::Frame frame = FrameOf({});
    frame.background = colour;
    return frame;
}

class RenderServiceTest : public testing::Test {
protected:
    RenderServiceTest() { m_device.open = m_gate.get_future().share(); }

    RenderService::Callback Record(std::vector<QRgb>& colours)
    {
        return [&](const RenderResult& result) { colours.push_back(result.image.pixel(0, 0)); };
    }

    Device m_device;
    std::promise<void> m_gate;
};

TEST_F(RenderServiceTest, LatestRequestOfAViewWinsAndNoViewStarves)
{
    RenderService service(std::make_unique<TestProvider>(m_device));
    const auto busy = service.AddView();
    const auto other = service.AddView();
    std::vector<QRgb> seen;
    std::vector<QRgb> seenByOther;
    for (int i = 1; i <= 50; ++i) {
        service.Request(busy, Coloured(i), [&, i](const RenderResult& result) {
            EXPECT_EQ(result.image.pixel(0, 0), qRgb(i, 0, 0)) << "another request's picture";
            seen.push_back(result.image.pixel(0, 0));
        });
        if (i == 25) {
            service.Request(other, Coloured(0x00FF00), Record(seenByOther));
        }
    }
    m_gate.set_value();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !seen.empty() && seen.back() == qRgb(50, 0, 0); }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !seenByOther.empty(); }));
    EXPECT_LE(seen.size(), 2U);  // the one that was begun at once, and the last
    EXPECT_EQ(seenByOther, std::vector<QRgb>{qRgb(0, 255, 0)});
}

TEST_F(RenderServiceTest, ForgottenRequestsAreNeverDelivered)
{
    std::vector<QRgb> seen;
    {
        RenderService service(std::make_unique<TestProvider>(m_device));
        const auto removed = service.AddView();
        const auto cancelled = service.AddView();
        const auto last = service.AddView();
        service.Request(removed, Coloured(1), Record(seen));
        service.Request(cancelled, Coloured(2), Record(seen));
        service.RemoveView(removed);
        service.Cancel(cancelled);
        service.Request(removed, Coloured(3), Record(seen));
        m_gate.set_value();
        EXPECT_EQ(service.DrawNow(Coloured(4)).pixel(0, 0), qRgb(4, 0, 0));
        service.Request(last, Coloured(5), Record(seen));
    }  // ends with a request that waits or is being drawn
    QCoreApplication::processEvents();
    EXPECT_TRUE(seen.empty());
}

TEST_F(RenderServiceTest, RefusedDeviceIsReportedAndTriedAgain)
{
    m_gate.set_value();
    m_device.refusals = 2;
    RenderService service(std::make_unique<TestProvider>(m_device));
    std::optional<RenderResult> result;
    service.Request(service.AddView(), Coloured(1), [&](const RenderResult& r) { result = r; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }));
    EXPECT_EQ(result->status, Status::GraphicsFailed);
    EXPECT_EQ(result->error, "no device today");
    EXPECT_TRUE(result->image.isNull());
    EXPECT_THROW((void)service.DrawNow(Coloured(1)), CorvexMaterial::Error);
    EXPECT_EQ(service.DrawNow(Coloured(1)).pixel(0, 0), qRgb(1, 0, 0));
}

TEST_F(RenderServiceTest, ResetDeviceRebuildsEverything)
{
    m_gate.set_value();
    RenderService service(std::make_unique<TestProvider>(m_device));
    const studio::Frame frame = FrameOf({Item(Ball(), {}), Item(Square(), Glowing(0xFF, 50))});
    const QImage before = service.DrawNow(frame);
    EXPECT_EQ(Difference(service.DrawNow(frame), before), 0);
    EXPECT_EQ(m_device.made, 1);
    service.ResetDevice();
    EXPECT_EQ(Difference(service.DrawNow(frame), before), 0);
    EXPECT_EQ(m_device.made, 2);
}

}  // namespace
