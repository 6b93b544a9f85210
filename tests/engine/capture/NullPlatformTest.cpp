#include "capture/NullCapturePlatform.h"
#include "recording/RecordingSession.h"

#include <functional>
#include <gtest/gtest.h>

namespace nubo {
namespace {

// Where no backend loads, the program still starts: every capture and the
// recorder say why nothing can be taken, in the loader's own words.
TEST(NullCapturePlatform, EveryCaptureSaysWhatIsMissing)
{
    const QString why =
        QStringLiteral("No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set.");
    NullCapturePlatform platform(why);
    EXPECT_EQ(platform.problem(), why);
    EXPECT_TRUE(platform.features().modes.isEmpty());
    EXPECT_FALSE(platform.features().recording);
    EXPECT_FALSE(platform.makeFrameSource());
    EXPECT_FALSE(RecordingSession::forPlatform(platform));
    EXPECT_FALSE(platform.grants().asked);

    const std::shared_ptr<ScreenCapturing> capturer = platform.capturer();
    ASSERT_TRUE(capturer);
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"displays",
         [&] {
             capturer->displays();
         }},
        {"windows",
         [&] {
             capturer->listWindows(false);
         }},
        {"display",
         [&] {
             capturer->captureDisplays();
         }},
        {"window",
         [&] {
             capturer->captureWindow(1);
         }},
        {"region",
         [&] {
             capturer->captureRegion(0, {});
         }},
        {"probe",
         [&] {
             capturer->probe();
         }},
    };
    for (const auto& [name, call] : calls) {
        SCOPED_TRACE(name);
        try {
            call();
            ADD_FAILURE() << "answered where it cannot capture";
        } catch (const CapturePlatformError& error) {
            EXPECT_EQ(error.message(), why);
        }
    }
    capturer->prepareWindowPixels(); // nothing to prepare, nothing thrown
}

} // namespace
} // namespace nubo
