#include "CommandLine.h"

namespace nookle {

namespace {

class WordReader final {
public:
    void take(QChar character)
    {
        if (m_isEscaped)
            takeEscaped(character);
        else if (character == u'\\' && m_quote != u'\'')
            m_isEscaped = true;
        else if (!m_quote.isNull())
            takeQuoted(character);
        else if (character == u'"' || character == u'\'')
            beginQuote(character);
        else if (character.isSpace())
            endWord();
        else
            add(character);
    }

    [[nodiscard]] std::optional<QStringList> finish()
    {
        if (m_isEscaped || !m_quote.isNull())
            return std::nullopt;
        endWord();
        return m_words.isEmpty() ? std::nullopt : std::optional(m_words);
    }

private:
    void takeEscaped(QChar character)
    {
        m_isEscaped = false;
        // Between quotes a backslash stands for itself before everything that needs none.
        if (m_quote == u'"' && !QStringView(u"\"\\$`").contains(character))
            add(u'\\');
        add(character);
    }

    void takeQuoted(QChar character)
    {
        if (character == m_quote)
            m_quote = QChar();
        else
            add(character);
    }

    void beginQuote(QChar character)
    {
        m_quote = character;
        m_hasWord = true;
    }

    void add(QChar character)
    {
        m_word += character;
        m_hasWord = true;
    }

    void endWord()
    {
        if (m_hasWord)
            m_words.append(m_word);
        m_word.clear();
        m_hasWord = false;
    }

    QStringList m_words;
    QString m_word;
    /// A word may be empty, but then it has quotes.
    bool m_hasWord = false;
    bool m_isEscaped = false;
    QChar m_quote;
};

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
    WordReader reader;
    for (const QChar character : line)
        reader.take(character);
    return reader.finish();
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
