// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Runs the tests of views in an application without a screen, the same on every machine.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("QT_FONT_DPI", "96");
    const QTemporaryDir runtimeFolder;
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toUtf8());
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
