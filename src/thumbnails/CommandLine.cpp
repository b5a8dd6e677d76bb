#include "CommandLine.h"

#include <glib.h>

#include <memory>

namespace nookle {

namespace {

[[nodiscard]] std::optional<QString> meaning(QChar code, const ThumbnailerFiles& files)
{
    switch (code.unicode()) {
    case u'i':
        return files.inputPath;
    case u'u':
        return files.inputUri;
    case u'o':
        return files.outputPath;
    case u's':
        return QString::number(files.side);
    case u'%':
        return QStringLiteral("%");
    default:
        return std::nullopt;
    }
}

[[nodiscard]] std::optional<QString> expanded(const QString& word, const ThumbnailerFiles& files)
{
    QString result;
    for (qsizetype index = 0; index < word.size(); ++index) {
        if (word[index] != u'%') {
            result += word[index];
            continue;
        }
        ++index;
        const auto text = index < word.size() ? meaning(word[index], files) : std::nullopt;
        if (!text)
            return std::nullopt;
        result += *text;
    }
    return result;
}

} // namespace

std::optional<QStringList> commandWords(const QString& line)
{
    int count = 0;
    char** words = nullptr;
    if (g_shell_parse_argv(line.toUtf8().constData(), &count, &words, nullptr) == FALSE)
        return std::nullopt;
    const std::unique_ptr<char*, decltype(&g_strfreev)> owned(words, &g_strfreev);
    QStringList list;
    for (int index = 0; index < count; ++index)
        list.append(QString::fromUtf8(words[index]));
    return list;
}

std::optional<QStringList> expandedWords(const QStringList& words, const ThumbnailerFiles& files)
{
    QStringList result;
    bool hasOutput = false;
    for (const QString& word : words) {
        const auto text = expanded(word, files);
        if (!text)
            return std::nullopt;
        hasOutput = hasOutput || text->contains(files.outputPath);
        result.append(*text);
    }
    return hasOutput ? std::optional(result) : std::nullopt;
}

} // namespace nookle
