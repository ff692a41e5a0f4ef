#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    // Also when the tests are only listed, or one is run by hand.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
