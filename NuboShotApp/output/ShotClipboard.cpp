#include "output/ShotClipboard.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "export/PngEncoder.h"
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

std::unique_ptr<QMimeData> ShotClipboard::renderItem(ShotRenderer& renderer,
                                                     const ShotDocument& document, double scale)
{
    // A fresh capture at its own density is its image: nothing to draw.
    const QImage image = ShotExporter::isBareCapture(document, scale)
                             ? document.layers.first().image
                             : renderer.render(document, scale);
    PngEncoder::Options options;
    options.pixelsPerPoint = scale;
    const QByteArray png = image.isNull() ? QByteArray() : PngEncoder::encode(image, options);
    if (png.isEmpty()) {
        qCWarning(lcExport, "Clipboard item could not be made size=%dx%d", image.width(),
                  image.height());
        throw Error(QStringLiteral("The screenshot could not be put on the clipboard."));
    }
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("image/png"), png);
    return data;
}

} // namespace nubo
