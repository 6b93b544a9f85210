#pragma once

#include "recognition/SensitiveText.h"

#include <QList>

#include <optional>

class QWidget;

namespace nubo {

// The kind of a secret as the list names it ("E-mail address").
QString sensitiveKindTitle(SensitiveKind kind);

// Asks which of the secrets found to hide: each listed with its kind and
// text, ticked; the user unticks the ones to keep. The indexes of those
// left ticked, or nothing when the user cancels.
std::optional<QList<int>> chooseSensitiveText(QWidget* parent, const QList<SensitiveFind>& finds);

} // namespace nubo
