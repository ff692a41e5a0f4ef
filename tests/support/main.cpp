#include <QApplication>

#include <gtest/gtest.h>

namespace {

QtMessageHandler passOn = nullptr;

/// The offscreen platform complains about every window that is raised.
void DropPlatformComplaints(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith("This plugin does not support")) {
        passOn(type, context, text);
    }
}

}  // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    passOn = qInstallMessageHandler(DropPlatformComplaints);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
