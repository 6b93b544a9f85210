#pragma once

#include <QEventLoop>
#include <QObject>
#include <QVariantMap>

#include <optional>

namespace nubo::portal {

// Receives one Request's Response signal in the thread that waits for it.
class PortalResponse : public QObject {
    Q_OBJECT
public:
    explicit PortalResponse(QEventLoop& loop) : m_loop(loop) {}

    std::optional<uint> code;
    QVariantMap results;

public slots:
    void respond(uint response, const QVariantMap& answer)
    {
        code = response;
        results = answer;
        m_loop.quit();
    }

private:
    QEventLoop& m_loop;
};

} // namespace nubo::portal
