#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

namespace nubo::test {

// A local server speaking Filebin's upload protocol, on its own thread:
// PUT /BIN/FILE answers 201 with Filebin's JSON, DELETE /BIN/FILE 200.
// Other behaviours on demand, to see how the client copes.
class FilebinServer {
public:
    enum class Mode {
        created,      // 201 and the bin's JSON
        refused,      // 403 with a JSON message
        dropAfterBody, // the whole body read, then the connection closed without a word
        silent,       // the body read, then nothing until the client gives up
    };
    struct Received {
        QByteArray method;
        QByteArray path;
        QByteArray contentType;
        QByteArray body;
    };

    FilebinServer();
    ~FilebinServer();

    QString address() const; // "http://127.0.0.1:PORT"
    void setMode(Mode mode);
    QList<Received> received() const;
    static constexpr char expiry[] = "2026-11-30T12:00:00Z";
    static constexpr char refusal[] = "this bin is locked";

private:
    struct Impl;
    std::unique_ptr<Impl> m;
};

} // namespace nubo::test
