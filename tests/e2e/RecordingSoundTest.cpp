// Recording with sound end to end: each test runs a sound server of its own
// (PipeWire with its PulseAudio service, silent speakers and a virtual
// microphone), plays known tones or clicks into it, records with
// `nuboshot record` in the private X session, and decodes the movie's sound
// with FFmpeg to see what it holds, where, and how loud.

#include "support/MovieDecoder.h"
#include "support/TrayFixture.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <cmath>
#include <csignal>
#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::waitUntil;

constexpr size_t rate = 48000;

class RecordingSound : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("DISPLAY")) << "runs in the private X session";
        ASSERT_TRUE(m_runtime.isValid());
        startServer();
    }
    void TearDown() override
    {
        for (QProcess* p : {&m_recorder, &m_tone, &m_tone2}) {
            p->kill();
            p->waitForFinished();
        }
        stopServer();
    }

    void startServer()
    {
        m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_server.start(QStringLiteral(NUBOSHOT_SOUND_SERVER), {m_runtime.path() + "/sound"});
        ASSERT_TRUE(m_server.waitForStarted());
        ASSERT_TRUE(waitUntil([&] {
            m_server.waitForReadyRead(50);
            m_serverOut += m_server.readAllStandardOutput();
            return m_serverOut.contains("ready") || m_server.state() == QProcess::NotRunning;
        }, 20000));
        ASSERT_TRUE(m_serverOut.contains("ready")) << "the sound server did not start";
        m_environment = QProcessEnvironment::systemEnvironment();
        m_environment.insert("PULSE_SERVER", "unix:" + m_runtime.path() + "/sound/pulse/native");
        m_environment.insert("PULSE_CLIENTCONFIG", m_runtime.path() + "/sound/pulse-client.conf");
        m_environment.insert("XDG_CONFIG_HOME", m_runtime.path() + "/config");
        m_environment.insert("XDG_STATE_HOME", m_runtime.path() + "/state");
        for (QProcess* p : {&m_recorder, &m_tone, &m_tone2}) {
            p->setProcessEnvironment(m_environment);
        }
    }
    void stopServer()
    {
        if (m_server.state() != QProcess::NotRunning) {
            m_server.terminate();
            m_server.waitForFinished(10000);
        }
    }

    // Plays a tone into a sink; returns once it sounds.
    bool playTone(QProcess& process, const QString& sink, double frequency, double seconds,
                  double amplitude = 0.3)
    {
        process.start(QStringLiteral(NUBOSHOT_TEST_SOUND),
                      {"tone", "--device", sink, "--frequency", QString::number(frequency), "--rate",
                       "44100", "--channels", "1", "--amplitude", QString::number(amplitude),
                       "--seconds", QString::number(seconds)});
        return process.waitForStarted() && process.waitForReadyRead(10000) &&
               process.readAllStandardOutput().contains("playing");
    }

    bool startRecording(const QStringList& arguments)
    {
        return test::startRecordCommand(m_recorder, arguments, m_runtime.path() + "/movies", m_log);
    }
    QString finished()
    {
        return test::finishRecordCommand(m_recorder, m_log, 60000);
    }
    void signalRecorder(int number) { ::kill(pid_t(m_recorder.processId()), number); }

    QTemporaryDir m_runtime;
    QProcess m_server, m_recorder, m_tone, m_tone2;
    QByteArray m_serverOut;
    QProcessEnvironment m_environment;
    QString m_log;
};

// Levels of a tone in consecutive 100 ms windows.
std::vector<double> levels(const std::vector<float>& sound, double frequency)
{
    std::vector<double> out;
    for (size_t at = 0; at + rate / 10 <= sound.size(); at += rate / 10) {
        out.push_back(test::toneLevel(sound, frequency, at, rate / 10));
    }
    return out;
}

// The longest run of windows at or above `threshold`, as [first, last].
std::pair<int, int> longestRun(const std::vector<double>& windows, double threshold)
{
    std::pair<int, int> best{-1, -2};
    int start = -1;
    for (int i = 0; i <= int(windows.size()); ++i) {
        const bool on = i < int(windows.size()) && windows[size_t(i)] >= threshold;
        if (on && start < 0) {
            start = i;
        } else if (!on && start >= 0) {
            if (i - 1 - start > best.second - best.first) {
                best = {start, i - 1};
            }
            start = -1;
        }
    }
    return best;
}

TEST_F(RecordingSound, SystemAudioAndMicrophoneMixedAtTheirLevelsForTheirStretches)
{
    // 440 Hz on the speakers all along; 1 kHz into the microphone for two
    // seconds, starting about a second into the recording. Both 44.1 kHz
    // mono: the movie's sound is 48 kHz stereo AAC.
    ASSERT_TRUE(playTone(m_tone, "speakers", 440, 8, 0.3));
    ASSERT_TRUE(startRecording({"area", "0,0,320,240", "--duration", "4", "--system-audio",
                                "--microphone"}))
        << m_log.toStdString();
    QThread::msleep(1000);
    ASSERT_TRUE(playTone(m_tone2, "microphone-feed", 1000, 2, 0.3));
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedSound sound = test::decodeSound(file);
    ASSERT_TRUE(sound.opened) << sound.error.toStdString();
    EXPECT_EQ(sound.codec, "aac");
    EXPECT_EQ(sound.sampleRate, 48000);
    EXPECT_EQ(sound.channels, 2);
    EXPECT_LE(sound.bitRate, 200000); // 192 kb/s at most; a pure tone needs less
    EXPECT_NEAR(sound.start, 0.0, 0.001);
    EXPECT_NEAR(sound.seconds(), 4.0, 0.3);

    const std::vector<double> system = levels(sound.mono, 440);
    const std::vector<double> mic = levels(sound.mono, 1000);
    ASSERT_GE(system.size(), 35u);
    // The system tone from start to end at its own level (0.3, the speakers
    // at full volume), allowing the encoder a little.
    for (size_t i = 1; i + 1 < system.size(); ++i) {
        EXPECT_NEAR(system[i], 0.3, 0.05) << "440 Hz at " << double(i) / 10 << " s";
    }
    // The microphone tone for two seconds, once; nothing of it elsewhere.
    const auto [from, to] = longestRun(mic, 0.15);
    ASSERT_GE(from, 0) << "no 1 kHz at all";
    std::string series;
    for (const double level : mic) {
        series += std::to_string(level).substr(0, 5) + " ";
    }
    SCOPED_TRACE("1 kHz levels: " + series);
    EXPECT_NEAR((to - from + 1) / 10.0, 2.0, 0.25);
    EXPECT_GE(from, 3) << "began before it was played";
    for (int i = from + 1; i < to; ++i) {
        EXPECT_NEAR(mic[size_t(i)], 0.3, 0.06) << "1 kHz at " << i / 10.0 << " s";
    }
    for (int i = 0; i < int(mic.size()); ++i) {
        if (i < from - 1 || i > to + 1) {
            EXPECT_LT(mic[size_t(i)], 0.01) << "1 kHz at " << i / 10.0 << " s";
        }
    }
    // Summed, never clipped: 0.3 + 0.3 stays below full scale.
    EXPECT_LT(test::peakLevel(sound.mono, 0, sound.mono.size()), 0.99f);
}

TEST_F(RecordingSound, APauseWritesNoSoundOfItsOwnAndLeavesNoGap)
{
    ASSERT_TRUE(playTone(m_tone, "speakers", 440, 10, 0.3));
    ASSERT_TRUE(startRecording({"area", "0,0,320,240", "--system-audio"})) << m_log.toStdString();
    QThread::msleep(1500);
    signalRecorder(SIGUSR1); // pause
    QThread::msleep(300);
    // A 1 kHz tone on the speakers only while paused.
    ASSERT_TRUE(playTone(m_tone2, "speakers", 1000, 1.5, 0.3));
    ASSERT_TRUE(m_tone2.waitForFinished(10000));
    QThread::msleep(400);
    signalRecorder(SIGUSR1); // resume
    QThread::msleep(1500);
    signalRecorder(SIGINT);
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedSound sound = test::decodeSound(file);
    ASSERT_TRUE(sound.opened) << sound.error.toStdString();
    // About three seconds recorded, the 2.2 s pause left out.
    EXPECT_NEAR(sound.seconds(), 3.0, 0.35);
    const std::vector<double> system = levels(sound.mono, 440);
    const std::vector<double> paused = levels(sound.mono, 1000);
    for (size_t i = 0; i < paused.size(); ++i) {
        EXPECT_LT(paused[i], 0.01) << "sound of the pause at " << double(i) / 10 << " s";
    }
    // The 440 Hz tone all along: every window but the one where the two
    // stretches meet (it holds two phases of the tone, which may cancel in
    // the filter)...
    size_t quiet = 0;
    for (size_t i = 1; i + 1 < system.size(); ++i) {
        quiet += system[i] < 0.15;
    }
    EXPECT_LE(quiet, 1u);
    // ...and, 10 ms fine, no stretch of silence anywhere: no gap.
    for (size_t at = rate / 10; at + rate / 100 < sound.mono.size() - rate / 10; at += rate / 200) {
        ASSERT_GT(test::peakLevel(sound.mono, at, rate / 100), 0.1f)
            << "silence at " << double(at) / rate << " s";
    }
}

TEST_F(RecordingSound, TheClickIsHeardWhenTheFlashIsSeen)
{
    // A clapper: a window flashes white while a click is heard, five times.
    // At 60 frames a second a flash shows in the first frame taken after it,
    // up to 1/60 s later.
    QProcess clapper;
    clapper.setProcessEnvironment(m_environment);
    ASSERT_TRUE(startRecording({"area", "0,0,400,300", "--fps", "60", "--no-cursor",
                                "--system-audio"}))
        << m_log.toStdString();
    clapper.start(QStringLiteral(NUBOSHOT_TEST_SOUND),
                  {"clapper", "--at", "200x200+100+50", "--count", "5", "--every", "0.8"});
    ASSERT_TRUE(clapper.waitForFinished(20000));
    QThread::msleep(300);
    signalRecorder(SIGINT);
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();

    QList<double> flashes;
    bool lit = false;
    test::decodeMovie(file, [&](const QImage& picture, double time) {
        const bool white = qGray(picture.pixel(200, 150)) > 128;
        if (white && !lit) {
            flashes.append(time);
        }
        lit = white;
    });
    const test::DecodedSound sound = test::decodeSound(file);
    QList<double> clicks;
    size_t quiet = rate;
    for (size_t i = 0; i < sound.mono.size(); ++i) {
        if (std::fabs(sound.mono[i]) > 0.2f) {
            if (quiet > rate / 5) {
                clicks.append(double(i) / rate);
            }
            quiet = 0;
        } else {
            ++quiet;
        }
    }
    ASSERT_EQ(flashes.size(), 5) << QStringList(QStringList() << clapper.readAllStandardOutput()).join("").toStdString();
    ASSERT_EQ(clicks.size(), 5);
    for (qsizetype i = 0; i < 5; ++i) {
        const double offset = flashes[i] - clicks[i];
        EXPECT_GE(offset, -0.020) << "click " << i << " heard " << -offset * 1000 << " ms after its flash";
        EXPECT_LE(offset, 1 / 60.0 + 0.020) << "click " << i << " heard " << offset * 1000
                                            << " ms before its flash";
    }
}

TEST_F(RecordingSound, AServerThatGoesAwayEndsTheSoundNotTheRecording)
{
    ASSERT_TRUE(playTone(m_tone, "speakers", 440, 10, 0.3));
    ASSERT_TRUE(startRecording({"area", "0,0,320,240", "--system-audio", "--microphone"}))
        << m_log.toStdString();
    QThread::msleep(1500);
    stopServer();
    QThread::msleep(1500);
    signalRecorder(SIGINT);
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    EXPECT_TRUE(m_log.contains(QStringLiteral("Recording saved without part of its sound")))
        << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file, false);
    ASSERT_TRUE(movie.opened);
    EXPECT_NEAR(movie.times.last(), 3.0, 0.4) << "the picture went on";
    const test::DecodedSound sound = test::decodeSound(file);
    ASSERT_TRUE(sound.opened);
    EXPECT_NEAR(sound.seconds(), 1.5, 0.4) << "the sound ends where the server went";
}

TEST_F(RecordingSound, SourcesAreListedAndAMissingServerOrMicrophoneIsSaidPlainly)
{
    QProcess list;
    list.setProcessEnvironment(m_environment);
    list.start(QStringLiteral(NUBOSHOT_BINARY), {"record", "--list-sources"});
    ASSERT_TRUE(list.waitForFinished(10000));
    EXPECT_EQ(list.exitCode(), 0);
    const QString listed = QString::fromUtf8(list.readAllStandardOutput());
    EXPECT_EQ(listed, QStringLiteral("microphone\tMicrophone\t(default)\n")) << "no monitors";

    // A microphone that is not there: the default one, said in the log.
    ASSERT_TRUE(playTone(m_tone, "microphone-feed", 1000, 6, 0.3));
    ASSERT_TRUE(startRecording({"area", "0,0,320,240", "--duration", "1.5",
                                "--microphone=unplugged-headset"}))
        << m_log.toStdString();
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    EXPECT_TRUE(m_log.contains(QStringLiteral("The microphone unplugged-headset is not available; "
                                              "recording from the default one, microphone")))
        << m_log.toStdString();
    const test::DecodedSound sound = test::decodeSound(file);
    EXPECT_NEAR(test::toneLevel(sound.mono, 1000, rate / 2, rate / 2), 0.3, 0.05);

    // No server at all.
    stopServer();
    struct Case {
        QStringList arguments;
        QString message;
    };
    const QList<Case> cases{
        {{"--list-sources"}, "No audio server answers"},
        {{"area", "0,0,320,240", "--duration", "1", "--microphone"},
         "Microphone recording requires a running audio server."},
        {{"area", "0,0,320,240", "--duration", "1", "--system-audio"}, "No audio server answers"},
    };
    for (const Case& c : cases) {
        QProcess p;
        p.setProcessEnvironment(m_environment);
        p.start(QStringLiteral(NUBOSHOT_BINARY),
                QStringList{"record"} << c.arguments << "-o" << m_runtime.path() + "/movies");
        ASSERT_TRUE(p.waitForFinished(20000));
        EXPECT_EQ(p.exitCode(), 1) << c.arguments.join(' ').toStdString();
        EXPECT_TRUE(QString::fromUtf8(p.readAllStandardError()).contains(c.message))
            << c.arguments.join(' ').toStdString();
    }
    EXPECT_TRUE(QDir(m_runtime.path() + "/movies").entryList({"*.mp4"}).size() == 1)
        << "a refused recording leaves no file";
}

} // namespace
} // namespace nubo
