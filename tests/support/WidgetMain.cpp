// SPDX-License-Identifier: MIT
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QByteArray>

/// The main of a suite with widgets: no window reaches a screen, unless a platform was asked for by
/// hand, and nothing reaches the home folder of whoever runs the tests.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    }
    qunsetenv("XDG_STATE_HOME"); // so that state is in the home folder, too
    const kestrel::test::TemporaryHome home;
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
