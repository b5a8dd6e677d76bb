#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

/// The words of a command line as desktop entries write them, with quotes and backslashes but without anything else
/// that a shell knows. Nothing when a quote does not end or there is no word.
[[nodiscard]] std::optional<QStringList> commandWords(const QString& line);

/// What the codes of a thumbnailer's command line stand for.
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

/// `words` with what their codes stand for. Nothing when there is a code that is not known, or none for the output.
[[nodiscard]] std::optional<QStringList> expandedWords(const QStringList& words, const ThumbnailerFiles& files);

} // namespace nookle
