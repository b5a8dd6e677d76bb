#pragma once

#include <QString>
#include <QTranslator>

#include <memory>

namespace nookle {

/// The interface in one language, for as long as this object lives.
class LanguageInUse final {
public:
    /// How the letters are drawn that the tests' font lacks, those of Chinese and Japanese.
    enum class MissingLetters {
        asTheyAre,
        /// As dashes, which are as wide as these letters are in their own fonts, and break into lines as they do.
        asDashes,
    };

    LanguageInUse(const QString& language, MissingLetters missingLetters);
    ~LanguageInUse();
    LanguageInUse(const LanguageInUse&) = delete;
    LanguageInUse& operator=(const LanguageInUse&) = delete;

private:
    std::unique_ptr<QTranslator> m_translator;
};

} // namespace nookle
