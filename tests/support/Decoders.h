#pragma once

#include <QByteArray>
#include <QImage>

namespace nubo::test {

// Decoders of the formats Qt cannot read here, to check what our encoders
// wrote with the reference libraries: a null image when they refuse it.
QImage decodeWebp(const QByteArray& data);
QImage decodeHeic(const QByteArray& data);

} // namespace nubo::test
