#pragma once

#include "core/EnumStrings.h"
#include "recognition/TextRecognition.h"

#include <QList>
#include <QRect>
#include <QString>

namespace nubo {

// What may be secret in a shot's text.
enum class SensitiveKind { email, phone, ipAddress, cardNumber, token, privateKey };
template <> struct EnumNames<SensitiveKind> {
    static constexpr std::array names{"email", "phone", "ip-address", "card-number", "token",
                                      "private-key"};
};

// One secret found among recognised words: its text and the boxes (in the
// picture's pixels) of the words that show it, one per line it spans.
struct SensitiveFind {
    SensitiveKind kind;
    QString text;
    QList<QRect> boxes;
};

// The kinds' patterns run over a single line of text; what they match.
// Each match is the part of `line` to hide (a key's value without its
// label). In the order they appear.
QList<std::pair<SensitiveKind, QString>> findSensitiveInLine(const QString& line);

// The secrets among recognised lines: e-mail addresses, phone numbers, IP
// addresses, card numbers (their check digit must hold), long tokens and
// keys, and private-key blocks (every line from BEGIN to END).
QList<SensitiveFind> findSensitiveText(const RecognizedText& text);

} // namespace nubo
