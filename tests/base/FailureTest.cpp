#include "Failure.h"

#include <QTest>
#include <QTranslator>

using namespace nookle;

namespace {

/// Knows one text.
class OneTextTranslator final : public QTranslator {
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                                    int /*n*/) const override
    {
        const bool isKnown = qstrcmp(context, "nookle::Failure") == 0 && qstrcmp(text, "%1 lacks %2") == 0;
        return isKnown ? QStringLiteral("%2 fehlt in %1") : QString();
    }
};

} // namespace

class FailureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSystemsWordsAreShownAsTheyAre();
    void theLogIsEnglishAndTheUserIsShownTheTranslation();
    void aPlaceholderInAStringStays();
};

void FailureTest::theSystemsWordsAreShownAsTheyAre()
{
    const Failure failure{ QStringLiteral("No such file") };
    QCOMPARE(failure.shown(), failure.description);
}

void FailureTest::theLogIsEnglishAndTheUserIsShownTheTranslation()
{
    OneTextTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const Failure failure = translatedFailure("%1 lacks %2", QStringLiteral("A"), QStringLiteral("B"));
    QCOMPARE(failure.description, QStringLiteral("A lacks B"));
    QCOMPARE(failure.shown(), QStringLiteral("B fehlt in A"));
    QCOMPARE(translatedFailure("all is lost").shown(), QStringLiteral("all is lost"));
}

void FailureTest::aPlaceholderInAStringStays()
{
    const Failure failure = translatedFailure("%1: %2", QStringLiteral("%2"), QStringLiteral("x"));
    QCOMPARE(failure.shown(), QStringLiteral("%2: x"));
}

QTEST_GUILESS_MAIN(FailureTest)
#include "FailureTest.moc"
