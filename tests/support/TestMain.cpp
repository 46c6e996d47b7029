#include <QCoreApplication>

#include <gtest/gtest.h>

// Code under test may rely on an application object (event loop, locale, paths).
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
