#include <QCoreApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

// Code under test may rely on an application object (event loop, locale, paths).
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    // Stores the program keeps in the user's folders (the folder-permission store) go to a
    // test location instead.
    QStandardPaths::setTestModeEnabled(true);
    return RUN_ALL_TESTS();
}
