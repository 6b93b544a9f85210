#pragma once

#include <QImage>
#include <QList>
#include <QPolygon>
#include <QString>

namespace nubo {

// A QR code or barcode found in a picture.
struct ReadCode {
    QString text;
    QString format;   // "QRCode", "EAN-13", "Code128"…
    QPolygon corners; // in the picture's pixels
    // Whether the text is a web address to offer opening (never opened
    // without the user's click).
    bool isLink() const;
};

// Every code in the picture, upright, turned or inverted (light on dark),
// in reading order.
QList<ReadCode> readCodes(const QImage& picture);

} // namespace nubo
