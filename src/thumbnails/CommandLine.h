#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

/// Splits a command line of a desktop entry into words. Quotes and backslashes work as in a shell; other shell features
/// do not. None if a quote is not closed or there is no word.
[[nodiscard]] std::optional<QStringList> commandWords(const QString& line);

/// The values of the field codes in a thumbnailer's command line.
struct ThumbnailerFiles {
    /// %i
    QString inputPath;
    /// %u
    QString inputUri;
    /// %o
    QString outputPath;
    /// %s
    int side = 0;
};

/// `words` with their field codes replaced by `files`. None if there is an unknown code, or no code for the output.
[[nodiscard]] std::optional<QStringList> expandedWords(const QStringList& words, const ThumbnailerFiles& files);

} // namespace nookle
