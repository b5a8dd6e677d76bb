#include "DropText.h"

#include "FakeDropPayload.h"

#include <QTest>

using namespace nookle;

class DropTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textIsDecodedByItsType_data();
    void textIsDecodedByItsType();
    void theFormatThatSaysUtf8IsPreferred();
    void aFormatThatDeliversNothingIsPassedOver();
    void whiteSpaceIsKept();
    void withoutATextFormatNothingIsRead();
    void fiftyMegabytesAreOneText();
};

namespace {

/// Bytes with NULs in them.
[[nodiscard]] QByteArray bytes(std::string_view text)
{
    return { text.data(), static_cast<qsizetype>(text.size()) };
}

} // namespace

void DropTextTest::textIsDecodedByItsType_data()
{
    using namespace std::string_view_literals;
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("data");
    const auto row = [](const char* name, const char* format, std::string_view data) {
        QTest::newRow(name) << QString::fromLatin1(format) << bytes(data);
    };
    row("utf-8", "text/plain;charset=utf-8", "gr\xc3\xbc\xc3\x9f"sv);
    row("utf-8, capitals and quotes", "text/plain; charset=\"UTF-8\"", "gr\xc3\xbc\xc3\x9f"sv);
    row("utf-8 with a mark", "text/plain", "\xef\xbb\xbfgr\xc3\xbc\xc3\x9f"sv);
    row("utf-8 without a charset", "text/plain", "gr\xc3\xbc\xc3\x9f"sv);
    row("utf-8 with a NUL at its end", "text/plain", "gr\xc3\xbc\xc3\x9f\0"sv);
    row("utf-8 in the selection's old name", "UTF8_STRING", "gr\xc3\xbc\xc3\x9f"sv);
    row("utf-16 with a mark, big-endian", "text/plain", "\xfe\xff\0g\0r\0\xfc\0\xdf"sv);
    row("utf-16 with a mark, little-endian", "text/plain;charset=utf-16", "\xff\xfeg\0r\0\xfc\0\xdf\0"sv);
    row("utf-16 without a mark", "text/plain;charset=utf-16", "g\0r\0\xfc\0\xdf\0"sv);
    row("utf-16 without mark or charset", "text/plain", "g\0r\0\xfc\0\xdf\0"sv);
    row("utf-16 by its type", "text/unicode", "g\0r\0\xfc\0\xdf\0"sv);
    row("utf-16, big-endian by its charset", "text/plain;charset=utf-16be", "\0g\0r\0\xfc\0\xdf"sv);
    row("latin-1", "text/plain;charset=iso-8859-1", "gr\xfc\xdf"sv);
    row("latin-1 without a charset", "text/plain", "gr\xfc\xdf"sv);
    row("latin-1 in the selection's old name", "STRING", "gr\xfc\xdf"sv);
    row("another character set", "text/plain;charset=ibm850", "gr\x81\xe1"sv);
    row("latin-1 that claims to be utf-8", "text/plain;charset=utf-8", "gr\xfc\xdf"sv);
    row("utf-8 in a charset that nobody knows", "text/plain;charset=of-nobody", "gr\xc3\xbc\xc3\x9f"sv);
}

void DropTextTest::textIsDecodedByItsType()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, data);
    QVERIFY(isTextFormat(format));
    QCOMPARE(decodeText(data, format), QStringLiteral("grüß"));
}

void DropTextTest::theFormatThatSaysUtf8IsPreferred()
{
    FakeDropPayload payload;
    payload.offer("STRING", "latin").offer("text/plain", "plain").offer("text/plain;charset=utf-8", "utf-8");
    QCOMPARE(loadDropText(payload), QStringLiteral("utf-8"));
    QCOMPARE(payload.read.size(), 1);
}

void DropTextTest::aFormatThatDeliversNothingIsPassedOver()
{
    FakeDropPayload payload;
    payload.offer("text/plain;charset=utf-8", "").offer("text/plain", "plain");
    QCOMPARE(loadDropText(payload), QStringLiteral("plain"));
}

void DropTextTest::whiteSpaceIsKept()
{
    FakeDropPayload payload;
    payload.offer("text/plain", "  two\nlines ");
    QCOMPARE(loadDropText(payload), QStringLiteral("  two\nlines "));
}

void DropTextTest::withoutATextFormatNothingIsRead()
{
    FakeDropPayload payload;
    payload.offer("text/html", "<p>words").offer("application/x-color", "red");
    QVERIFY(!loadDropText(payload));
    QVERIFY(payload.read.isEmpty());
}

void DropTextTest::fiftyMegabytesAreOneText()
{
    constexpr qsizetype size = 50'000'000;
    FakeDropPayload payload;
    payload.offer("text/plain", QByteArray(size, 'a'));
    QCOMPARE(loadDropText(payload)->size(), size);
}

QTEST_GUILESS_MAIN(DropTextTest)
#include "DropTextTest.moc"
