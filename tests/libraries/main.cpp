#include "Testing.h"
#include "WriterProcess.h"

int main(int argc, char** argv)
{
    if (const auto exit = LibraryTest::RunWriterIfAsked(argc, argv)) {
        return *exit;
    }
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
