#include "output/ShotClipboard.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "export/ShotExporter.h"
#include "render/ShotRenderer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace nubo {

ShotClipboard& ShotClipboard::shared()
{
    static ShotClipboard* clipboard = new ShotClipboard;
    return *clipboard;
}

ShotClipboard::ShotClipboard()
{
    connect(QGuiApplication::clipboard(), &QClipboard::changed, this,
            [this](QClipboard::Mode mode) {
                if (mode == QClipboard::Clipboard && !m_writing) {
                    raise();
                }
            });
}

std::optional<long> ShotClipboard::ownWrite() const
{
    const auto at = m_ownWrites.constFind(QLatin1String(name));
    return at == m_ownWrites.constEnd() ? std::nullopt : std::optional(*at);
}

void ShotClipboard::raise()
{
    ++m_changeCount;
    emit changed(m_changeCount);
}

long ShotClipboard::write(std::unique_ptr<QMimeData> data)
{
    // Our own write is one change, whether or not the platform reports it
    // while we set it.
    m_writing = true;
    QGuiApplication::clipboard()->setMimeData(data.release(), QClipboard::Clipboard);
    m_writing = false;
    raise();
    recordOwnWrite(m_changeCount);
    return m_changeCount;
}

QByteArray ShotClipboard::encodeItem(ShotRenderer& renderer, const ShotDocument& document,
                                     double scale)
{
    try {
        return ShotExporter::encode(renderer, document, ShotFormat::png, 1, scale,
                                    QStringLiteral("clipboard image"));
    } catch (const Error& error) {
        qCWarning(lcExport, "Clipboard item could not be made: %s", qPrintable(error.message()));
        throw Error(
            tr("The screenshot could not be put on the clipboard. %1").arg(error.message()));
    }
}

std::unique_ptr<QMimeData> ShotClipboard::makeItem(const QByteArray& png)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("image/png"), png);
    return data;
}

std::unique_ptr<QMimeData> ShotClipboard::renderItem(ShotRenderer& renderer,
                                                     const ShotDocument& document, double scale)
{
    return makeItem(encodeItem(renderer, document, scale));
}

} // namespace nubo
