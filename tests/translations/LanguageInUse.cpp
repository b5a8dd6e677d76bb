#include "LanguageInUse.h"

#include <QGuiApplication>
#include <QLocale>

#include <QtDebug>

namespace nookle {

namespace {

/// Chinese characters, Japanese syllables, and the signs and wide forms that go with them.
[[nodiscard]] bool isWide(QChar letter)
{
    return letter >= QChar(u'\u2e80') && letter < QChar(u'\ufe70') && !letter.isSurrogate();
}

[[nodiscard]] QString withDashes(const QString& text)
{
    QString drawn;
    for (const QChar letter : text) {
        if (isWide(letter))
            drawn += QStringLiteral("\u2014\u200b");
        else
            drawn += letter;
    }
    return drawn;
}

class DashingTranslator final : public QTranslator {
public:
    [[nodiscard]] QString translate(const char* context, const char* text, const char* disambiguation,
                                    int number) const override
    {
        return withDashes(QTranslator::translate(context, text, disambiguation, number));
    }
};

} // namespace

LanguageInUse::LanguageInUse(const QString& language, MissingLetters missingLetters)
    : m_translator(missingLetters == MissingLetters::asDashes ? std::make_unique<DashingTranslator>()
                                                              : std::make_unique<QTranslator>())
{
    if (!m_translator->load(QStringLiteral(NOOKLE_CATALOGUES "/nookle_%1.qm").arg(language)))
        qFatal("no catalogue of %s", qPrintable(language));
    QCoreApplication::installTranslator(m_translator.get());
    QGuiApplication::setLayoutDirection(QLocale(language).textDirection());
}

LanguageInUse::~LanguageInUse()
{
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace nookle
