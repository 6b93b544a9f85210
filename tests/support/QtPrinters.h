#pragma once

// Readable failure messages for the Qt types the tests compare.

#include <QPointF>
#include <QRectF>
#include <QString>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QPointF& p, std::ostream* os)
{
    *os << '(' << p.x() << ", " << p.y() << ')';
}

inline void PrintTo(const QRectF& r, std::ostream* os)
{
    *os << '(' << r.x() << ", " << r.y() << ", " << r.width() << " x " << r.height() << ')';
}
