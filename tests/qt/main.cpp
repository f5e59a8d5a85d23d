// The Qt tests run on the offscreen platform, in one QApplication for the whole run.
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zandolt ESD Test Log"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
