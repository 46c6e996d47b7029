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
    // As the program starts: the movie view keeps its GL context when it moves to a window
    // of its own (full screen). One run leaves it out to check the player copes without.
    if (qEnvironmentVariableIsEmpty("CAPTORA_TEST_UNSHARED_GL"))
        QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // No sound device is needed to check pictures and times.
    if (qEnvironmentVariableIsEmpty("CAPTORA_AUDIO_OUTPUT"))
        qputenv("CAPTORA_AUDIO_OUTPUT", "null");
    QApplication app(argc, argv);
    // libmpv needs the C number format, which QApplication has just replaced.
    std::setlocale(LC_NUMERIC, "C");
    QStandardPaths::setTestModeEnabled(true);
    return RUN_ALL_TESTS();
}
