#include <QGuiApplication>
#ifdef NUBOSHOT_TEST_WIDGETS
#include <QApplication>
#endif

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

// Every test binary runs inside a Qt application, as the program does: the
// unit tests on the offscreen platform, the others on the private X session.
// Tests, and the programs they start, never touch the user's own settings or
// data, nor each other's: every test process gets a home of its own under the
// build folder, removed when it ends (ctest runs each test as one process).
int main(int argc, char** argv)
{
#ifdef NUBOSHOT_TEST_ONE_OPENMP_THREAD
    // As the front starts the text program: OpenMP held to one thread, which
    // it reads when it loads (before main), so set and started again.
    if (!std::getenv("OMP_THREAD_LIMIT")) {
        ::setenv("OMP_THREAD_LIMIT", "1", 1);
        ::execv("/proc/self/exe", argv);
    }
#endif
    QDir().mkpath(QStringLiteral(NUBOSHOT_TEST_HOME));
    const QTemporaryDir home(QStringLiteral(NUBOSHOT_TEST_HOME "/" NUBOSHOT_TEST_LABEL "-XXXXXX"));
    if (!home.isValid()) {
        std::fprintf(stderr, "cannot make a test home under %s\n", NUBOSHOT_TEST_HOME);
        return 1;
    }
    const QByteArray path = QFile::encodeName(home.path());
    qputenv("HOME", path);
    qputenv("XDG_CONFIG_HOME", path + "/config");
    qputenv("XDG_DATA_HOME", path + "/data");
    qputenv("XDG_CACHE_HOME", path + "/cache");
    qputenv("XDG_STATE_HOME", path + "/state");
    // Temporary exports (drag, share) live in the runtime folder: one of its
    // own too, so that counting or sweeping them never sees another test's.
    const QByteArray runtime = path + "/runtime";
    if (::mkdir(runtime.constData(), 0700) != 0) {
        std::fprintf(stderr, "cannot make a runtime folder %s\n", runtime.constData());
        return 1;
    }
    qputenv("XDG_RUNTIME_DIR", runtime);
    qputenv("NUBOSHOT_TEST_ARTIFACTS", NUBOSHOT_TEST_ARTIFACTS);
    if (std::strcmp(NUBOSHOT_TEST_LABEL, "unit") == 0) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    {
        // The cards of keys greet a person's first capture and first editor;
        // a test that looks at them clears these.
        QSettings preferences(QSettings::IniFormat, QSettings::UserScope,
                              QStringLiteral("NuboShot"), QStringLiteral("NuboShot"));
        preferences.setValue(QStringLiteral("shot.keyHelp.overlaySeen"), true);
        preferences.setValue(QStringLiteral("shot.keyHelp.editorSeen"), true);
    }
    ::testing::InitGoogleTest(&argc, argv);
#ifdef NUBOSHOT_TEST_WIDGETS
    QApplication app(argc, argv);
#else
    QGuiApplication app(argc, argv);
#endif
    return RUN_ALL_TESTS();
}
