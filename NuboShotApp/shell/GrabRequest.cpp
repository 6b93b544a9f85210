#include "shell/GrabRequest.h"

#include "core/Logging.h"
#include "export/ShotExporter.h"
#include "shell/TrayApplication.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QPainter>

namespace nubo {

namespace {

// Several displays become one image of the desktop's bounding box.
QImage combined(const QList<DisplayCapture>& captures)
{
    if (captures.size() == 1) {
        return captures.first().image;
    }
    QRect bounds;
    for (const DisplayCapture& capture : captures) {
        bounds |= capture.space.captureFrame.toRect();
    }
    QImage desktop(bounds.size(), QImage::Format_RGBA8888_Premultiplied);
    desktop.fill(Qt::transparent);
    QPainter painter(&desktop);
    for (const DisplayCapture& capture : captures) {
        painter.drawImage(capture.space.captureFrame.topLeft() - bounds.topLeft(), capture.image);
    }
    return desktop;
}

} // namespace

QString GrabRequest::perform(ScreenCapturing& capturer) const
{
    const auto format = formatForFileName(output);
    if (!format) {
        throw Error(QStringLiteral("Cannot tell the image format of \u201c%1\u201d.").arg(output));
    }
    QElapsedTimer clock;
    clock.start();
    QImage image;
    double density = 1;
    switch (mode) {
    case Mode::fullscreen: {
        const QList<DisplayCapture> captures = capturer.captureDisplays(display);
        image = combined(captures);
        density = captures.first().space.scale;
        break;
    }
    case Mode::window: {
        const WindowCapture capture = capturer.captureWindow(window);
        image = capture.image;
        density = capture.scale;
        break;
    }
    case Mode::region: {
        QList<ScreenSpace> spaces;
        for (const CaptureDisplay& d : capturer.displays()) {
            spaces.append(d.space);
        }
        const ShotCaptureSelection selection = framing(spaces);
        image = capturer.captureRegion(selection.display(), captureRegion(selection, spaces));
        for (const ScreenSpace& space : spaces) {
            if (space.displayID == selection.display()) {
                density = space.scale;
            }
        }
        break;
    }
    }
    const qint64 captured = clock.elapsed();
    const ShotDocument document = ShotDocument::fromImage(image, density);
    ShotExporter::exportShot(document, *format, output, quality,
                             ShotExporter::defaultScale(document));
    qCDebug(lcCapture) << "Grab: captured in" << captured << "ms, written in"
                       << clock.elapsed() - captured << "ms";
    return output;
}

ShotCaptureSelection GrabRequest::framing(const QList<ScreenSpace>& displays) const
{
    return ShotCaptureSelection::fromDesktopPixels(region, displays);
}

QVariantList GrabOverBus::arguments(const GrabRequest& r)
{
    return {int(r.mode),
            r.display ? qint64(*r.display) : qint64(-1),
            qint64(r.window),
            QVariantList{r.region.x(), r.region.y(), r.region.width(), r.region.height()},
            r.output,
            r.quality,
            qEnvironmentVariable("DISPLAY")};
}

GrabRequest GrabOverBus::fromArguments(const QVariantList& a)
{
    GrabRequest r;
    r.mode = GrabRequest::Mode(std::clamp(a.value(0).toInt(), 0, 2));
    const qint64 display = a.value(1).toLongLong();
    if (display >= 0) {
        r.display = quint32(display);
    }
    r.window = quint32(a.value(2).toLongLong());
    const QVariantList rect = a.value(3).toList();
    if (rect.size() == 4) {
        r.region =
            QRectF(rect[0].toDouble(), rect[1].toDouble(), rect[2].toDouble(), rect[3].toDouble());
    }
    r.output = a.value(4).toString();
    r.quality = a.value(5).toDouble();
    return r;
}

std::optional<QString> GrabOverBus::ask(const GrabRequest& request)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return std::nullopt;
    }
    QDBusMessage call =
        QDBusMessage::createMethodCall(QLatin1String(TrayApplication::busName), QLatin1String(path),
                                       QLatin1String(interface), QStringLiteral("Grab"));
    call.setArguments(arguments(request));
    call.setAutoStartService(false); // a grab never starts the tray application
    const QDBusMessage reply = bus.call(call, QDBus::Block, 60000);
    if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()) {
        return reply.arguments().first().toString();
    }
    if (reply.type() == QDBusMessage::ErrorMessage &&
        reply.errorName() == QLatin1String(errorName)) {
        throw Error(reply.errorMessage());
    }
    // No instance, one on another display, or one that cannot answer: do it here.
    return std::nullopt;
}

} // namespace nubo
