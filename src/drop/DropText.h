#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

class DropPayload;

/// Whether a format is plain text.
[[nodiscard]] bool isTextFormat(const QString& format);

/// Those of the formats that are plain text, the best one first.
[[nodiscard]] QStringList textFormats(QStringList formats);

/// The text in the best format of the payload that delivers one.
[[nodiscard]] std::optional<QString> loadDropText(const DropPayload& payload);

/// Decodes text that came in `format`. Uses the byte-order mark, else the character set of the format, else the first
/// of UTF-8, UTF-16 and Latin-1 that fits the bytes. NULs at the end are removed.
[[nodiscard]] QString decodeText(const QByteArray& bytes, const QString& format);

/// Decodes a file name, which ends at the first NUL: as UTF-8, or as Latin-1 if it is not UTF-8.
[[nodiscard]] QString decodeName(const QByteArray& bytes);

} // namespace nookle
