#include <QGuiApplication>
#ifdef NUBOSHOT_TEST_WIDGETS
#include <QApplication>
#endif

#include <cstring>
#include <gtest/gtest.h>

// Every test binary runs inside a Qt application, as the program does: the
// unit tests on the offscreen platform, the others on the private X session.
// Tests, and the programs they start, never touch the user's own settings or
// data: their homes are under the build folder.
int main(int argc, char** argv)
{
    qputenv("HOME", NUBOSHOT_TEST_HOME);
    qputenv("XDG_CONFIG_HOME", NUBOSHOT_TEST_HOME "/config");
    qputenv("XDG_DATA_HOME", NUBOSHOT_TEST_HOME "/data");
    qputenv("XDG_CACHE_HOME", NUBOSHOT_TEST_HOME "/cache");
    qputenv("NUBOSHOT_TEST_ARTIFACTS", NUBOSHOT_TEST_ARTIFACTS);
    if (std::strcmp(NUBOSHOT_TEST_LABEL, "unit") == 0) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ::testing::InitGoogleTest(&argc, argv);
#ifdef NUBOSHOT_TEST_WIDGETS
    QApplication app(argc, argv);
#else
    QGuiApplication app(argc, argv);
#endif
    return RUN_ALL_TESTS();
}
