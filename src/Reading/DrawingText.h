#pragma once

#include "DrawingAllowance.h"

#include <QByteArray>
#include <QString>

namespace quenara {

/// The text of a drawing (SVG, compressed or not) in UTF-8, UTF-16, UTF-32 or Latin-1. What reading
/// it takes, several times over, is taken from \a allowance. Empty if that is more than is left, if
/// the bytes are damaged or declare another encoding.
[[nodiscard]] QString drawingText(const QByteArray &bytes, DrawingAllowance &allowance);

/// The text without its document type and all that this declares. Empty if there are two of them.
[[nodiscard]] QString withoutDocumentType(const QString &text);

} // namespace quenara
