#include "style/ShotIcons.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

#include <cmath>
#include <optional>

// The icons live in this static library: their resource is registered by
// hand, since nothing else would pull its object file in.
static void registerIconResource()
{
    static const bool registered = [] {
        Q_INIT_RESOURCE(icons);
        return true;
    }();
    Q_UNUSED(registered);
}

namespace nubo {

namespace {

QString resourcePath(const QString& name)
{
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

// One SVG drawn in the colour the palette gives its mode and state.
class TintedSvgEngine final : public QIconEngine {
public:
    TintedSvgEngine(QString name, QByteArray svg, std::optional<QColor> fixed = std::nullopt)
        : m_name(std::move(name)), m_svg(std::move(svg)), m_fixed(fixed)
    {}

    QIconEngine* clone() const override { return new TintedSvgEngine(m_name, m_svg, m_fixed); }
    QString key() const override { return QStringLiteral("nuboshot-tinted-svg"); }
    QString iconName() override { return m_name; }
    bool isNull() override { return m_svg.isEmpty(); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawPixmap(rect, scaledPixmap(rect.size() * ratio, mode, state, ratio));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1.0);
    }
    // `size` is in device pixels already (as QIcon::pixmap asks for it); the
    // pixmap takes `scale` as its pixel ratio.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override
    {
        const QColor color = colorFor(mode, state);
        const QSize pixels = size;
        const QString cacheKey = QStringLiteral("%1x%2 %3")
                                     .arg(pixels.width())
                                     .arg(pixels.height())
                                     .arg(color.name(QColor::HexArgb));
        if (const auto found = m_cache.constFind(cacheKey); found != m_cache.cend()) {
            return *found;
        }
        QPixmap pixmap(pixels);
        pixmap.fill(Qt::transparent);
        QByteArray tinted = m_svg;
        tinted.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
        QSvgRenderer renderer(tinted);
        {
            QPainter painter(&pixmap);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setOpacity(color.alphaF());
            // Square, centred in what was asked for.
            const int side = std::min(pixels.width(), pixels.height());
            renderer.render(&painter, QRectF((pixels.width() - side) / 2.0,
                                             (pixels.height() - side) / 2.0, side, side));
        }
        pixmap.setDevicePixelRatio(scale);
        if (m_cache.size() > 32) {
            m_cache.clear();
        }
        m_cache.insert(cacheKey, pixmap);
        return pixmap;
    }

private:
    QColor colorFor(QIcon::Mode mode, QIcon::State state) const
    {
        if (m_fixed) {
            QColor faded = *m_fixed;
            faded.setAlphaF(mode == QIcon::Disabled ? 0.35 : 1.0);
            return faded;
        }
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Disabled) {
            return palette.color(QPalette::Disabled, QPalette::ButtonText);
        }
        if (state == QIcon::On || mode == QIcon::Selected) {
            return palette.color(QPalette::Active, QPalette::HighlightedText);
        }
        return palette.color(QPalette::Active, QPalette::ButtonText);
    }

    QString m_name;
    QByteArray m_svg;
    std::optional<QColor> m_fixed; // drawn in this colour whatever the palette
    QHash<QString, QPixmap> m_cache;
};

} // namespace

QIcon ShotIcons::icon(const QString& name)
{
    return icon(name, std::nullopt);
}

QIcon ShotIcons::icon(const QString& name, std::optional<QColor> colour)
{
    registerIconResource();
    QFile file(resourcePath(name));
    if (!file.open(QIODevice::ReadOnly)) {
        Q_ASSERT_X(false, "ShotIcons::icon", "an icon we do not ship");
        return {};
    }
    return QIcon(new TintedSvgEngine(name, file.readAll(), colour));
}

QIcon ShotIcons::application()
{
    QFile file(QStringLiteral(":/icons/nuboshot.svg"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    // No name: desktops would look it up in the icon theme, where a build
    // that is not installed has none.
    return QIcon(new TintedSvgEngine(QString(), file.readAll()));
}

QCursor ShotIcons::cursor(const QString& name, QPointF hotSpot)
{
    registerIconResource();
    QFile file(resourcePath(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray svg = file.readAll();
    const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
    constexpr int side = 24;
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        QByteArray halo = svg;
        halo.replace("currentColor", "#ffffff").replace("stroke-width=\"1.6\"",
                                                         "stroke-width=\"4\"");
        QSvgRenderer(halo).render(&painter);
        QByteArray ink = svg;
        ink.replace("currentColor", "#000000");
        QSvgRenderer(ink).render(&painter);
    }
    pixmap.setDevicePixelRatio(ratio);
    return QCursor(pixmap, int(std::lround(hotSpot.x())), int(std::lround(hotSpot.y())));
}

QIcon ShotIcons::colorDot(const QColor& fill, const QColor& edge, int side)
{
    QPixmap dot(side * 2, side * 2);
    dot.setDevicePixelRatio(2);
    dot.fill(Qt::transparent);
    QPainter painter(&dot);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1.5));
    painter.setBrush(fill);
    painter.drawEllipse(QRectF(2, 2, side - 4, side - 4));
    painter.end();
    return QIcon(dot);
}

QStringList ShotIcons::names()
{
    registerIconResource();
    QStringList names;
    for (const QString& file : QDir(QStringLiteral(":/icons")).entryList(QDir::Files)) {
        names << file.chopped(4);
    }
    return names;
}

} // namespace nubo
