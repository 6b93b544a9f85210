#pragma once

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

namespace nubo {

// An exact time in seconds: value / scale, kept reduced, scale > 0. Sums and
// differences stay exact (the stream time bases of a movie, 1/15360 or
// 1/90000, and the sound's 1/48000 meet in small common scales); doubles are
// only ever made from it for display.
struct VideoTime {
    int64_t value = 0;
    int64_t scale = 1;

    constexpr VideoTime() = default;
    VideoTime(int64_t value, int64_t scale);
    static VideoTime seconds(int64_t whole) { return VideoTime(whole, 1); }
    static VideoTime milliseconds(int64_t ms) { return VideoTime(ms, 1000); }
    // A time in a stream's time base (num/den seconds a tick).
    static VideoTime ofTicks(int64_t ticks, int num, int den);
    // Seconds written as a decimal ("2", "2.5", "0.033"): exact, nothing else.
    static std::optional<VideoTime> parse(const QString& text);

    // This time in ticks of num/den seconds, rounded to the nearest tick
    // (halves away from zero).
    int64_t ticks(int num, int den) const;
    // Rounded down to whole ticks.
    int64_t floorTicks(int num, int den) const;
    double toSeconds() const { return double(value) / double(scale); }
    // "12.5 s" style for logs and the command line: up to three decimals.
    QString text() const;

    friend VideoTime operator+(VideoTime a, VideoTime b);
    friend VideoTime operator-(VideoTime a, VideoTime b);
    VideoTime& operator+=(VideoTime other) { return *this = *this + other; }
    VideoTime& operator-=(VideoTime other) { return *this = *this - other; }
    friend std::strong_ordering operator<=>(VideoTime a, VideoTime b);
    friend bool operator==(VideoTime a, VideoTime b) { return a.value == b.value && a.scale == b.scale; }
};

inline VideoTime min(VideoTime a, VideoTime b) { return b < a ? b : a; }
inline VideoTime max(VideoTime a, VideoTime b) { return a < b ? b : a; }

// A stretch of source time: where it starts and how long it lasts.
struct VideoTimeRange {
    VideoTime start;
    VideoTime duration;
    VideoTime end() const { return start + duration; }
    bool contains(VideoTime t) const { return t >= start && t < end(); }
    bool isEmpty() const { return duration <= VideoTime(); }
    static VideoTimeRange between(VideoTime from, VideoTime to) { return {from, to - from}; }
    bool operator==(const VideoTimeRange&) const = default;
};

} // namespace nubo
