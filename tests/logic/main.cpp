#include "QtWarnings.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    InstallWarningHandler();
    const int nResult = RUN_ALL_TESTS();
    RemoveWarningHandler();
    return nResult;
}
