#pragma once

#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include <chrono>

namespace nubo::portal {

inline constexpr char service[] = "org.freedesktop.portal.Desktop";
inline constexpr char objectPath[] = "/org/freedesktop/portal/desktop";

// The version of one of the desktop portal's interfaces; 0 when the portal
// or the interface is not there.
uint interfaceVersion(const QString& interface);

// A portal property, invalid when it cannot be read.
QVariant property(const QString& interface, const QString& name);

// A fresh token for a request or session handle.
QString newToken();

// Calls a portal method that answers through a Request object, the options
// last, and waits for the results in this thread (which needs no running
// event loop). A user's "no" throws CaptureError `cancelled`, the portal's
// refusal `permissionDenied`; a bus failure or no answer in time throws
// Error naming the cause.
QVariantMap request(const QString& interface, const QString& method, QVariantList arguments,
                    QVariantMap options, std::chrono::milliseconds timeout);

// A plain method call; throws Error with the bus's text.
QVariant call(const QString& path, const QString& interface, const QString& method,
              const QVariantList& arguments);

} // namespace nubo::portal
