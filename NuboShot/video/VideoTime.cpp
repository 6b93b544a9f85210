#include "video/VideoTime.h"

#include <QRegularExpression>

#include <numeric>
#include <stdexcept>

namespace nubo {

namespace {

using Wide = __int128;

VideoTime reduced(Wide value, Wide scale)
{
    if (scale < 0) {
        value = -value;
        scale = -scale;
    }
    Wide a = value < 0 ? -value : value, b = scale;
    while (b != 0) {
        const Wide t = a % b;
        a = b;
        b = t;
    }
    const Wide divisor = a == 0 ? scale : a;
    value /= divisor;
    scale /= divisor;
    if (value > INT64_MAX || value < INT64_MIN || scale > INT64_MAX) {
        throw std::overflow_error("video time out of range");
    }
    VideoTime time;
    time.value = int64_t(value);
    time.scale = int64_t(scale);
    return time;
}

Wide roundedQuotient(Wide n, Wide d)
{
    // d > 0; halves away from zero.
    return n >= 0 ? (2 * n + d) / (2 * d) : -((-2 * n + d) / (2 * d));
}

} // namespace

VideoTime::VideoTime(int64_t v, int64_t s)
{
    if (s == 0) {
        throw std::invalid_argument("video time with a zero scale");
    }
    *this = reduced(v, s);
}

VideoTime VideoTime::ofTicks(int64_t ticks, int num, int den)
{
    return reduced(Wide(ticks) * num, den);
}

std::optional<VideoTime> VideoTime::parse(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*(-?)(\\d{1,12})(?:\\.(\\d{1,9}))?\\s*$"));
    const auto match = pattern.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString fraction = match.captured(3);
    int64_t scale = 1;
    for (int i = 0; i < fraction.size(); ++i) {
        scale *= 10;
    }
    int64_t value = match.captured(2).toLongLong() * scale + (fraction.isEmpty() ? 0 : fraction.toLongLong());
    if (!match.captured(1).isEmpty()) {
        value = -value;
    }
    return VideoTime(value, scale);
}

int64_t VideoTime::ticks(int num, int den) const
{
    return int64_t(roundedQuotient(Wide(value) * den, Wide(scale) * num));
}

int64_t VideoTime::floorTicks(int num, int den) const
{
    const Wide n = Wide(value) * den, d = Wide(scale) * num;
    Wide q = n / d;
    if (n % d != 0 && n < 0) {
        --q;
    }
    return int64_t(q);
}

QString VideoTime::text() const
{
    return QStringLiteral("%1 s").arg(QString::number(toSeconds(), 'f', 3).remove(QRegularExpression(QStringLiteral("\\.?0+$"))));
}

VideoTime operator+(VideoTime a, VideoTime b)
{
    return reduced(Wide(a.value) * b.scale + Wide(b.value) * a.scale, Wide(a.scale) * b.scale);
}

VideoTime operator-(VideoTime a, VideoTime b)
{
    return reduced(Wide(a.value) * b.scale - Wide(b.value) * a.scale, Wide(a.scale) * b.scale);
}

std::strong_ordering operator<=>(VideoTime a, VideoTime b)
{
    const Wide left = Wide(a.value) * b.scale, right = Wide(b.value) * a.scale;
    return left < right ? std::strong_ordering::less
                        : left > right ? std::strong_ordering::greater : std::strong_ordering::equal;
}

} // namespace nubo
