#include "capture/NullCapturePlatform.h"

namespace nubo {

namespace {

// Every call fails with the reason no backend loaded.
class NullScreenCapturing : public ScreenCapturing {
public:
    explicit NullScreenCapturing(QString problem) : m_problem(std::move(problem)) {}
    QList<CaptureDisplay> displays() override { fail(); }
    WindowCaptureSnapshot listWindows(bool) override { fail(); }
    QList<DisplayCapture> captureDisplays(std::optional<quint32>) override { fail(); }
    WindowCapture captureWindow(quint32) override { fail(); }
    QImage captureRegion(quint32, const ScreenCaptureRegion&) override { fail(); }
    void probe() override { fail(); }
    void prepareWindowPixels() override {}

private:
    [[noreturn]] void fail() const { throw CapturePlatformError(m_problem); }
    QString m_problem;
};

} // namespace

NullCapturePlatform::NullCapturePlatform(QString problem)
    : m_problem(std::move(problem)), m_capturer(std::make_shared<NullScreenCapturing>(m_problem))
{}

} // namespace nubo
