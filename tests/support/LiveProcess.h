#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace nubo::test {

// Runs a program to its end while this process keeps handling its events
// (serving the clipboard, painting, answering drag and drop); returns what
// the program printed.
QByteArray runServing(const QString& program, const QStringList& arguments,
                      const QByteArray& input = {});
// Handles events for a while, so that what was just sent arrives.
void settle(int ms = 150);
// Handles events until `condition` holds; false when it did not within
// `timeoutMs`.
bool settleUntil(const std::function<bool()>& condition, int timeoutMs = 5000);
// xdotool with the given steps, then a short settle.
void xdotool(const QStringList& arguments);

} // namespace nubo::test
