#include "capture/CaptureTypes.h"

#include "core/Geometry.h"

#include <QCoreApplication>

#include <cmath>

namespace nubo {

CaptureError::CaptureError(Code code, QString detail)
    : Error(messageFor(code)), m_code(code), m_detail(std::move(detail))
{}

QString CaptureError::messageFor(Code code)
{
    switch (code) {
    case Code::permissionDenied:
        return QCoreApplication::translate("nubo::CaptureTypes",
                                           "Screen Recording permission is required.");
    case Code::cancelled:
        return QCoreApplication::translate("nubo::CaptureTypes", "Capture was cancelled.");
    case Code::noContent:
        return QCoreApplication::translate("nubo::CaptureTypes", "No screen content is available.");
    }
    return {};
}

WindowCaptureFraming
WindowCaptureFraming::forWindow(const QRectF& frame,
                                const QList<std::pair<quint32, QRectF>>& displays)
{
    for (const auto& [id, bounds] : displays) {
        if (bounds.contains(frame)) {
            return {Display{id, frame.translated(-bounds.topLeft())}};
        }
    }
    return {Free{}};
}

QSize WindowCaptureFraming::pixelSize(QSizeF size, double scale)
{
    return {std::max(int(std::lround(size.width() * scale)), 1),
            std::max(int(std::lround(size.height() * scale)), 1)};
}

} // namespace nubo
