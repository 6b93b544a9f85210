// Plays known sound into the audio server for the recording tests.
//
//   test-sound tone --device SINK --frequency HZ [--rate HZ] [--channels N]
//                   [--amplitude A] [--seconds S]
//       a sine tone, 16-bit, at the given rate and channel count;
//   test-sound clapper --at WxH+X+Y --count N [--every S] [--device SINK]
//       a black window that turns white for a quarter second while a click
//       is heard, at the same instant: the click is written ahead and the
//       window flashes when the server says it is played.
//
// Prints "playing" once sound flows, and "click T" (seconds since then)
// for each click of the clapper.

#include <xcb/xcb.h>

#include <pulse/error.h>
#include <pulse/simple.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using SampleFormat = pa_sample_spec; // the library's name for a sample format

struct Options {
    std::string mode;
    std::string device;
    double frequency = 440;
    int rate = 48000;
    int channels = 2;
    double amplitude = 0.3;
    double seconds = 3600;
    int width = 200, height = 200, x = 0, y = 0;
    int count = 5;
    double every = 1.0;
};

[[noreturn]] void die(const std::string& what)
{
    std::fprintf(stderr, "test-sound: %s\n", what.c_str());
    std::exit(1);
}

Options parse(int argc, char** argv)
{
    if (argc < 2) {
        die("tone or clapper?");
    }
    Options o;
    o.mode = argv[1];
    for (int i = 2; i < argc; ++i) {
        const std::string a = argv[i];
        if (i + 1 >= argc) {
            die("missing value after " + a);
        }
        const char* v = argv[++i];
        if (a == "--device") {
            o.device = v;
        } else if (a == "--frequency") {
            o.frequency = std::atof(v);
        } else if (a == "--rate") {
            o.rate = std::atoi(v);
        } else if (a == "--channels") {
            o.channels = std::atoi(v);
        } else if (a == "--amplitude") {
            o.amplitude = std::atof(v);
        } else if (a == "--seconds") {
            o.seconds = std::atof(v);
        } else if (a == "--count") {
            o.count = std::atoi(v);
        } else if (a == "--every") {
            o.every = std::atof(v);
        } else if (a == "--at") {
            if (std::sscanf(v, "%dx%d+%d+%d", &o.width, &o.height, &o.x, &o.y) != 4) {
                die("--at takes WxH+X+Y");
            }
        } else {
            die("unknown option " + a);
        }
    }
    return o;
}

pa_simple* openPlayback(const Options& o, int rate, int channels, double bufferMs)
{
    const SampleFormat format{PA_SAMPLE_S16LE, uint32_t(rate), uint8_t(channels)};
    pa_buffer_attr attributes{};
    attributes.maxlength = uint32_t(-1);
    attributes.tlength = uint32_t(bufferMs / 1000 * rate) * uint32_t(channels) * 2;
    attributes.prebuf = uint32_t(-1);
    attributes.minreq = uint32_t(-1);
    attributes.fragsize = uint32_t(-1);
    int error = 0;
    pa_simple* s = pa_simple_new(nullptr, "test-sound", PA_STREAM_PLAYBACK,
                                 o.device.empty() ? nullptr : o.device.c_str(), o.mode.c_str(),
                                 &format, nullptr, &attributes, &error);
    if (!s) {
        die(std::string("cannot play: ") + pa_strerror(error));
    }
    return s;
}

void write(pa_simple* s, const std::vector<int16_t>& samples)
{
    int error = 0;
    if (pa_simple_write(s, samples.data(), samples.size() * sizeof(int16_t), &error) < 0) {
        die(std::string("cannot write: ") + pa_strerror(error));
    }
}

int tone(const Options& o)
{
    // A generous buffer: a tone must never run dry on a busy machine.
    pa_simple* s = openPlayback(o, o.rate, o.channels, 400);
    const int block = o.rate / 100;
    std::vector<int16_t> samples(size_t(block * o.channels));
    const long long total = (long long)(o.seconds * o.rate);
    bool announced = false;
    for (long long n = 0; n < total; n += block) {
        for (int i = 0; i < block; ++i) {
            const double v = o.amplitude * std::sin(2 * M_PI * o.frequency * double(n + i) / o.rate);
            for (int c = 0; c < o.channels; ++c) {
                samples[size_t(i * o.channels + c)] = int16_t(std::lround(v * 32767));
            }
        }
        write(s, samples);
        if (!announced) {
            std::printf("playing\n");
            std::fflush(stdout);
            announced = true;
        }
    }
    int error = 0;
    pa_simple_drain(s, &error);
    pa_simple_free(s);
    return 0;
}

// The clapper's window, painted from a thread of its own at given times.
class Flasher {
public:
    explicit Flasher(const Options& o)
    {
        m_c = xcb_connect(nullptr, nullptr);
        if (xcb_connection_has_error(m_c)) {
            die("no X display");
        }
        xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_c)).data;
        m_black = screen->black_pixel;
        m_white = screen->white_pixel;
        m_window = xcb_generate_id(m_c);
        const uint32_t values[] = {m_black, 1};
        xcb_create_window(m_c, XCB_COPY_FROM_PARENT, m_window, screen->root, int16_t(o.x),
                          int16_t(o.y), uint16_t(o.width), uint16_t(o.height), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        xcb_map_window(m_c, m_window);
        xcb_flush(m_c);
        m_thread = std::thread([this] { run(); });
    }
    ~Flasher()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_done = true;
        }
        m_wake.notify_all();
        m_thread.join();
        xcb_disconnect(m_c);
    }
    void flashAt(Clock::time_point when)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_due.push_back(when);
        }
        m_wake.notify_all();
    }

private:
    void paint(uint32_t pixel)
    {
        xcb_change_window_attributes(m_c, m_window, XCB_CW_BACK_PIXEL, &pixel);
        xcb_clear_area(m_c, 0, m_window, 0, 0, 0, 0);
        xcb_aux_sync();
    }
    void xcb_aux_sync()
    {
        std::free(xcb_get_input_focus_reply(m_c, xcb_get_input_focus(m_c), nullptr));
    }
    void run()
    {
        std::unique_lock lock(m_mutex);
        while (true) {
            m_wake.wait(lock, [this] { return m_done || !m_due.empty(); });
            if (m_done) {
                return;
            }
            const Clock::time_point when = m_due.front();
            m_due.erase(m_due.begin());
            lock.unlock();
            std::this_thread::sleep_until(when);
            paint(m_white);
            std::this_thread::sleep_for(std::chrono::milliseconds(250));
            paint(m_black);
            lock.lock();
        }
    }

    xcb_connection_t* m_c = nullptr;
    xcb_window_t m_window = 0;
    uint32_t m_black = 0, m_white = 0;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::vector<Clock::time_point> m_due;
    bool m_done = false;
};

int clapper(const Options& o)
{
    Flasher flasher(o);
    constexpr int rate = 48000;
    pa_simple* s = openPlayback(o, rate, 2, 20);
    const int block = rate / 200; // 5 ms
    std::vector<int16_t> silence(size_t(block * 2), 0);
    // A click: 10 ms of 2 kHz at 0.8, starting at once.
    std::vector<int16_t> click(size_t(rate / 100 * 2));
    for (size_t i = 0; i < click.size() / 2; ++i) {
        const auto v = int16_t(std::lround(0.8 * 32767 * std::sin(2 * M_PI * 2000 * double(i) / rate)));
        click[i * 2] = click[i * 2 + 1] = v;
    }
    // Half a second of silence first, so the stream runs steadily.
    const Clock::time_point start = Clock::now();
    std::printf("playing\n");
    std::fflush(stdout);
    int done = 0;
    Clock::time_point next = start + std::chrono::milliseconds(1000);
    while (done < o.count) {
        if (Clock::now() >= next) {
            int error = 0;
            const pa_usec_t latency = pa_simple_get_latency(s, &error);
            const Clock::time_point heard = Clock::now() + std::chrono::microseconds(latency);
            write(s, click);
            flasher.flashAt(heard);
            std::printf("click %.3f latency %.1f ms\n",
                        std::chrono::duration<double>(heard - start).count(), latency / 1000.0);
            std::fflush(stdout);
            ++done;
            next += std::chrono::microseconds((long long)(o.every * 1e6));
        } else {
            write(s, silence);
        }
    }
    for (int i = 0; i < 100; ++i) { // half a second to close
        write(s, silence);
    }
    int error = 0;
    pa_simple_drain(s, &error);
    pa_simple_free(s);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const Options o = parse(argc, argv);
    if (o.mode == "tone") {
        return tone(o);
    }
    if (o.mode == "clapper") {
        return clapper(o);
    }
    die("tone or clapper?");
}
