#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <clocale>

// Tests of widgets and players need a QApplication; the offscreen suite draws without a
// display unless the environment names a platform.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
#ifdef CAPTORA_DEFAULT_QPA
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", CAPTORA_DEFAULT_QPA);
#endif
    QApplication app(argc, argv);
    // libmpv needs the C number format, which QApplication has just replaced.
    std::setlocale(LC_NUMERIC, "C");
    QStandardPaths::setTestModeEnabled(true);
    return RUN_ALL_TESTS();
}
