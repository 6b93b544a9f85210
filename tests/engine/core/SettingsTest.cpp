#include "core/Settings.h"

#include "document/Annotation.h"
#include "support/QtPrinters.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace nubo {
namespace {

// Preferences as a user (or an older version) may have left them on disk.
class SettingsFile : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[General]\n"
                   "shot.closeAfter.copy=false\n"
                   "shot.closeAfter.save=true\n"
                   "shot.closeAfter.drag=banana\n"
                   "shot.recent.enabled=1\n"
                   "shot.quickSaveFormat=jpeg\n"
                   "shot.recording.codec=h265000\n"
                   "shot.style.lineWidth=6.5\n"
                   "shot.style.fontSize=nan\n"
                   "shot.recording.countdown=3\n");
    }
    QString path() const { return m_dir.filePath(QStringLiteral("NuboShot.conf")); }

    QTemporaryDir m_dir;
};

TEST_F(SettingsFile, MissingOrMistypedValuesReadAsTheDefault)
{
    const ShotPreferences prefs(path());
    struct BoolCase {
        const char* key;
        bool fallback;
        bool expected;
    };
    const BoolCase booleans[] = {
        {"shot.closeAfter.copy", true, false}, // explicit false wins
        {"shot.closeAfter.save", false, true}, // explicit true wins
        {"shot.closeAfter.drag", true, true},  // not a Boolean
        {"shot.closeAfter.drag", false, false},
        {"shot.recent.enabled", false, false}, // a number is not a Boolean
        {"shot.copyRawOnCapture", true, true}, // missing
        {"shot.copyRawOnCapture", false, false},
    };
    for (const BoolCase& c : booleans) {
        EXPECT_EQ(prefs.boolean(c.key, c.fallback), c.expected) << c.key;
    }

    EXPECT_EQ(prefs.number("shot.style.lineWidth", 4), 6.5);
    EXPECT_EQ(prefs.number("shot.style.fontSize", 24), 24); // not finite
    EXPECT_EQ(prefs.number("shot.style.missing", 24), 24);
    EXPECT_EQ(prefs.integer("shot.recording.countdown"), 3);
    EXPECT_EQ(prefs.integer("shot.style.lineWidth"), std::nullopt);
}

TEST_F(SettingsFile, EnumerationsReadForgivingly)
{
    const ShotPreferences prefs(path());
    // A known case name, an unknown one, a missing key.
    EXPECT_EQ(prefs.enumeration("shot.style.shape", ShapeVariant::rect), ShapeVariant::rect);
    ShotPreferences writable(path());
    writable.setEnumeration("shot.style.shape", ShapeVariant::filledRect);
    ASSERT_TRUE(writable.sync());
    const ShotPreferences reread(path());
    EXPECT_EQ(reread.enumeration("shot.style.shape", ShapeVariant::rect), ShapeVariant::filledRect);
    EXPECT_EQ(reread.enumeration(keys::recordingCodec, ShapeVariant::ellipse),
              ShapeVariant::ellipse);
    EXPECT_EQ(reread.string(keys::quickSaveFormat), QStringLiteral("jpeg"));
}

TEST_F(SettingsFile, WrittenValuesReadBackTyped)
{
    {
        ShotPreferences prefs(path());
        prefs.setValue(keys::copyRawOnCapture, true);
        prefs.setValue("shot.style.lineWidth", 2.25);
        prefs.remove("shot.closeAfter.copy");
        ASSERT_TRUE(prefs.sync());
    }
    const ShotPreferences prefs(path());
    EXPECT_TRUE(prefs.boolean(keys::copyRawOnCapture, false));
    EXPECT_EQ(prefs.number("shot.style.lineWidth", 0), 2.25);
    EXPECT_FALSE(prefs.contains("shot.closeAfter.copy"));
    EXPECT_TRUE(prefs.boolean("shot.closeAfter.copy", true));
}

} // namespace
} // namespace nubo
