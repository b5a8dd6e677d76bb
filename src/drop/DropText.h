#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

class DropPayload;

/// Whether a format is plain text.
[[nodiscard]] bool isTextFormat(const QString& format);

/// The text in the best of the payload's formats that delivers any.
[[nodiscard]] std::optional<QString> loadDropText(const DropPayload& payload);

/// Decodes text that came in `format`: by its byte-order mark, by the format's character set, or else as UTF-8, as
/// UTF-16 or as Latin-1, whichever it can be. NULs at the end are not part of it.
[[nodiscard]] QString decodeText(const QByteArray& bytes, const QString& format);

} // namespace nookle
