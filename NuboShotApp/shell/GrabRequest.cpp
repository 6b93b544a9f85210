#include "shell/GrabRequest.h"

#include "core/FileWriting.h"
#include "core/Geometry.h"
#include "core/Logging.h"
#include "export/ShotExporter.h"
#include "shell/BusNames.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPainter>

#include <cmath>

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
    case Mode::pickedWindow: {
        const WindowCapture capture = capturer.pickWindow();
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

void GrabRequest::validate() const
{
    const auto refuse = [](const QString& why) {
        throw Error(QStringLiteral("Grab refused: %1.").arg(why));
    };
    if (output.isEmpty() || !QFileInfo(output).isAbsolute() || output.contains(QChar(0))) {
        refuse(QStringLiteral("the output \u201c%1\u201d is not an absolute path").arg(output));
    }
    FileWriting::refuseSpecialTarget(output);
    if (!formatForFileName(output)) {
        refuse(QStringLiteral("cannot tell the image format of \u201c%1\u201d").arg(output));
    }
    if (!QFileInfo(QFileInfo(output).absolutePath()).isDir()) {
        refuse(QStringLiteral("the folder of \u201c%1\u201d does not exist").arg(output));
    }
    if (!std::isfinite(quality) || quality < 0 || quality > 1) {
        refuse(QStringLiteral("the quality %1 is not between 0 and 1").arg(quality));
    }
    if (mode == Mode::window && window == 0) {
        refuse(QStringLiteral("no window id"));
    }
    if (mode == Mode::region) {
        // Desktop pixels: X11 coordinates are 16-bit, so nothing real lies
        // beyond this.
        constexpr double reach = 1 << 16;
        if (!ShotGeometry::isFinite(region) || !(region.width() > 0) || !(region.height() > 0) ||
            std::abs(region.x()) > reach || std::abs(region.y()) > reach ||
            region.width() > reach || region.height() > reach) {
            refuse(QStringLiteral("the region is not a rectangle on a desktop"));
        }
    }
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
    // Whatever another program sends: every field is checked, nothing is
    // clamped into something that was not asked for.
    const auto refuse = [](const QString& why) {
        throw Error(QStringLiteral("Grab refused: %1.").arg(why));
    };
    if (a.size() < 6) {
        refuse(QStringLiteral("too few arguments"));
    }
    GrabRequest r;
    bool ok = false;
    const int mode = a.value(0).toInt(&ok);
    if (!ok || mode < 0 || mode > int(GrabRequest::Mode::pickedWindow)) {
        refuse(QStringLiteral("%1 is not a grab mode (0 fullscreen, 1 window, 2 region, "
                              "3 window picked by the desktop)")
                   .arg(a.value(0).toString()));
    }
    r.mode = GrabRequest::Mode(mode);
    const qint64 display = a.value(1).toLongLong(&ok);
    if (!ok || display < -1 || display > qint64(UINT32_MAX)) {
        refuse(QStringLiteral("%1 is not a display").arg(a.value(1).toString()));
    }
    if (display >= 0) {
        r.display = quint32(display);
    }
    const qint64 window = a.value(2).toLongLong(&ok);
    if (!ok || window < 0 || window > qint64(UINT32_MAX)) {
        refuse(QStringLiteral("%1 is not a window id").arg(a.value(2).toString()));
    }
    r.window = quint32(window);
    const QVariantList rect = a.value(3).toList();
    if (rect.size() == 4) {
        r.region =
            QRectF(rect[0].toDouble(), rect[1].toDouble(), rect[2].toDouble(), rect[3].toDouble());
    } else if (r.mode == GrabRequest::Mode::region) {
        refuse(QStringLiteral("a region needs four numbers"));
    }
    r.output = a.value(4).toString();
    r.quality = a.value(5).toDouble(&ok);
    if (!ok) {
        refuse(QStringLiteral("the quality is not a number"));
    }
    r.validate();
    return r;
}

std::optional<QString> GrabOverBus::ask(const GrabRequest& request)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return std::nullopt;
    }
    QDBusMessage call =
        QDBusMessage::createMethodCall(QLatin1String(bus::name), QLatin1String(path),
                                       QLatin1String(interface), QStringLiteral("Grab"));
    call.setArguments(arguments(request));
    call.setAutoStartService(false); // a grab never starts the tray application
    const QDBusMessage reply = bus.call(call, QDBus::Block, 60000);
    if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()) {
        return reply.arguments().first().toString();
    }
    const QString name = reply.errorName();
    // No instance, or one on another display or without a capture backend:
    // capturing here is the only capture there will be.
    if (bus::meansNobodyToAsk(name.toUtf8().constData())) {
        return std::nullopt;
    }
    if (name == QLatin1String(errorName)) {
        throw Error(reply.errorMessage());
    }
    // Any other answer (a time-out above all) may mean the instance is still
    // at work: capturing here as well could write the file twice.
    throw Error(QStringLiteral("The running Nubo Shot did not finish the grab: %1")
                    .arg(reply.errorMessage().isEmpty() ? name : reply.errorMessage()));
}

} // namespace nubo
