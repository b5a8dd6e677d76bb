#include "ShelfIndex.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTest>

using namespace nookle;

namespace {

[[nodiscard]] QString dataPath(const QString& name)
{
    return QStringLiteral(NOOKLE_INDEX_DATA "/") + name;
}

[[nodiscard]] QByteArray fixture(const QString& name)
{
    QFile file(dataPath(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

[[nodiscard]] QString failureOf(const QByteArray& bytes)
{
    const auto result = ShelfIndex::decode(bytes);
    const Failure* failure = std::get_if<Failure>(&result);
    return failure ? failure->description : QStringLiteral("(read)");
}

[[nodiscard]] ShelfIndex decoded(const QByteArray& bytes)
{
    const auto result = ShelfIndex::decode(bytes);
    if (const Failure* failure = std::get_if<Failure>(&result))
        qFatal("not readable: %s", qPrintable(failure->description));
    return std::get<ShelfIndex>(result);
}

[[nodiscard]] LinkUrl link(const char* text)
{
    return LinkUrl::parse(QString::fromLatin1(text)).value();
}

[[nodiscard]] ShelfItem item(ShelfItem::Content content)
{
    return { QUuid::fromString(QStringLiteral("1b4e28ba-2fa1-11d2-883f-b9a761bde3fb")),
             QDateTime::fromString(QStringLiteral("2026-01-31T12:00:00Z"), Qt::ISODate), std::move(content), false };
}

} // namespace

class ShelfIndexTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anItemReadBackIsTheSame_data();
    void anItemReadBackIsTheSame();
    void aDateLosesItsFraction();
    void anItemOfAFractionalDateDiffersWhenReadBack();
    void theWrittenFormIsPrettyPrintedWithSortedKeys();
    void theWrittenFormIsThatOfAGeneralWriter_data() { anItemReadBackIsTheSame_data(); }
    void theWrittenFormIsThatOfAGeneralWriter();
    void theSizeIsBoundedBefore_data() { anItemReadBackIsTheSame_data(); }
    void theSizeIsBoundedBefore();
    void aLinkWithoutTitleIsWrittenWithoutTheKey();
    void aNullTitleReadsAsNoTitle();
    void unknownKeysAndOtherOrdersAreRead();
    void theOrderOfTheItemsIsKept();
    void aBadIndexIsRefusedForItsReason_data();
    void aBadIndexIsRefusedForItsReason();
    void everyBadIndexIsInTheTable();
    void everyPrefixOfAnIndexIsRefused();
};

void ShelfIndexTest::anItemReadBackIsTheSame_data()
{
    QTest::addColumn<ShelfItem>("original");
    QByteArray allBytes;
    for (int byte = 0; byte < 256; ++byte)
        allBytes.append(static_cast<char>(byte));
    QTest::newRow("file") << item(FileContent{ allBytes, QStringLiteral("R\u00e9sum\u00e9 \U0001F600.pdf") });
    QTest::newRow("file with nothing") << item(FileContent{ QByteArray(), QString() });
    QTest::newRow("text") << item(TextContent{ QStringLiteral("a\"\\/\b\f\n\r\t\u0001\u2028\u007f\ufeff") });
    QTest::newRow("text with NUL") << item(TextContent{ QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b") });
    QTest::newRow("text with half a pair") << item(TextContent{ QString(QChar(0xd800)) });
    QTest::newRow("text with the other half") << item(TextContent{ QChar(0xdc00) + QStringLiteral("a") });
    QTest::newRow("text with pairs") << item(TextContent{ QStringLiteral("\U0001F600\U0001F601") + QChar(0xd800) });
    const QString longText = QString(70'000, QLatin1Char('x')) + QString(70'000, QChar(0xe9));
    QTest::newRow("long text") << item(TextContent{ longText + QStringLiteral("\n\U0001F600") + longText });
    QTest::newRow("link") << item(LinkContent{ link("HTTPS://Me@Example.COM:443/a%2fb?c=%C3#d"), {}, false });
    QTest::newRow("mail link") << item(LinkContent{ link("mailto:a@example.com"), QString(), true });
    QTest::newRow("link that is no valid address")
        << item(LinkContent{ LinkUrl::parseSaved(QStringLiteral("https://a/[b]#c#d")).value(), {}, false });
    QTest::newRow("image") << item(ImageContent{ QStringLiteral("Shot 1.png") });
    ShelfItem pinned = item(TextContent{ QStringLiteral("a") });
    pinned.pinned = true;
    QTest::newRow("pinned") << pinned;
    ShelfItem old = item(TextContent{ QStringLiteral("a") });
    old.createdAt = QDateTime::fromSecsSinceEpoch(-1, Qt::UTC);
    QTest::newRow("old") << old;
}

void ShelfIndexTest::anItemReadBackIsTheSame()
{
    QFETCH(ShelfItem, original);
    const ShelfIndex index = decoded(ShelfIndex{ 1, { original } }.encode());
    QCOMPARE(index.items.size(), 1);
    QVERIFY(index.items.constFirst() == original);
    QCOMPARE(index.items.constFirst().createdAt.timeSpec(), Qt::UTC);
}

void ShelfIndexTest::aDateLosesItsFraction()
{
    ShelfItem original = item(TextContent{ QStringLiteral("a") });
    const QDateTime whole = original.createdAt;
    original.createdAt = whole.addMSecs(999);
    QCOMPARE(decoded(ShelfIndex{ 1, { original } }.encode()).items.constFirst().createdAt, whole);
    original.createdAt = whole.toOffsetFromUtc(3600);
    QCOMPARE(decoded(ShelfIndex{ 1, { original } }.encode()).items.constFirst().createdAt, whole);
}

void ShelfIndexTest::anItemOfAFractionalDateDiffersWhenReadBack()
{
    ShelfItem original = item(TextContent{ QStringLiteral("a") });
    original.createdAt = original.createdAt.addMSecs(1);
    QVERIFY(decoded(ShelfIndex{ 1, { original } }.encode()).items.constFirst() != original);
}

void ShelfIndexTest::theWrittenFormIsPrettyPrintedWithSortedKeys()
{
    ShelfItem pinned = item(LinkContent{ link("https://example.com/"), QStringLiteral("Example"), true });
    pinned.pinned = true;
    QCOMPARE(QString::fromUtf8(ShelfIndex{ 1, { pinned } }.encode()), QStringLiteral(R"({
    "items": [
        {
            "content": {
                "link": {
                    "hasIcon": true,
                    "title": "Example",
                    "url": "https://example.com/"
                }
            },
            "createdAt": "2026-01-31T12:00:00Z",
            "id": "1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB",
            "pinned": true
        }
    ],
    "version": 1
}
)"));
    QVERIFY(ShelfIndex{ .items = { item(FileContent{ "\xff\xfe", QString() }) } }.encode().contains(
        "\"bookmark\": \"//4=\""));
}

void ShelfIndexTest::theWrittenFormIsThatOfAGeneralWriter()
{
    QFETCH(ShelfItem, original);
    for (const QList<ShelfItem>& items : { QList<ShelfItem>(), { original }, { original, original } }) {
        const QByteArray bytes = ShelfIndex{ 7, items }.encode();
        QCOMPARE(bytes, QJsonDocument::fromJson(bytes).toJson());
    }
}

void ShelfIndexTest::theSizeIsBoundedBefore()
{
    QFETCH(ShelfItem, original);
    const ShelfIndex index{ .items = { original, original } };
    const qsizetype size = index.encode().size();
    const qsizetype close = ShelfIndex::closeUpperBound(index.items);
    QVERIFY(close >= size);
    QVERIFY2(close <= 3 * size + 1000, qPrintable(QStringLiteral("%1 for %2").arg(close).arg(size)));
    QVERIFY(ShelfIndex::upperBound(index.items) >= close);
}

void ShelfIndexTest::aLinkWithoutTitleIsWrittenWithoutTheKey()
{
    const QByteArray bytes = ShelfIndex{ 1, { item(LinkContent{ link("https://a/"), {}, false }) } }.encode();
    QVERIFY(!bytes.contains("title"));
    QVERIFY(!bytes.contains("null"));
}

void ShelfIndexTest::aNullTitleReadsAsNoTitle()
{
    QByteArray bytes =
        ShelfIndex{ 1, { item(LinkContent{ link("https://a/"), QStringLiteral("x"), false }) } }.encode();
    bytes.replace("\"x\"", "null");
    const ShelfIndex index = decoded(bytes);
    QVERIFY(std::get<LinkContent>(index.items.constFirst().content).title == std::nullopt);
}

void ShelfIndexTest::unknownKeysAndOtherOrdersAreRead()
{
    const ShelfIndex index = decoded(fixture(QStringLiteral("good/other-order-and-unknown-keys.json")));
    QCOMPARE(index.version, 7);
    ShelfItem expected = item(LinkContent{ link("HTTPS://Example.COM/A"), {}, false });
    expected.createdAt = QDateTime::fromSecsSinceEpoch(-1, Qt::UTC);
    expected.pinned = true;
    QVERIFY(index.items == QList<ShelfItem>{ expected });
}

void ShelfIndexTest::theOrderOfTheItemsIsKept()
{
    const ShelfIndex index = decoded(fixture(QStringLiteral("good/every-kind.json")));
    QStringList names;
    for (const ShelfItem& read : index.items)
        names.append(read.displayName());
    QCOMPARE(names.join(QLatin1Char('|')), QStringLiteral("Report.pdf|Milk|Example|Shot 1"));
    QVERIFY(decoded(index.encode()) == index);
    QVERIFY(decoded(fixture(QStringLiteral("good/empty-shelf.json"))).items.isEmpty());
}

namespace {

struct BadIndex {
    const char* file;
    const char* reason;
};

/// The JSON library's own words, which change from version to version.
constexpr const char* badJson = "";
constexpr const char* badKinds = "Invalid number of keys found, expected one.";
constexpr const char* badDate = "createdAt: expected a date such as 2026-01-31T12:00:00Z.";

constexpr BadIndex badIndexes[] = {
    { "empty", badJson },
    { "only-white-space", badJson },
    { "truncated", badJson },
    { "trailing-garbage", badJson },
    { "not-utf8", badJson },
    { "utf16", badJson },
    { "nul-bytes", badJson },
    { "deeply-nested", badJson },
    { "top-level-array", "expected an object." },
    { "top-level-string", badJson },
    { "version-missing", "version: expected an integer." },
    { "version-is-text", "version: expected an integer." },
    { "version-has-fraction", "version: expected an integer." },
    { "version-is-huge", "version: expected an integer." },
    { "version-is-boolean", "version: expected an integer." },
    { "version-is-null", "version: expected an integer." },
    { "items-missing", "items: expected an array." },
    { "items-is-object", "items: expected an array." },
    { "item-is-number", "items: expected an array of objects." },
    { "second-item-is-bad", "pinned: expected true or false." },
    { "id-missing", "id: expected a string." },
    { "id-is-number", "id: expected a string." },
    { "id-has-braces", "id: expected a UUID." },
    { "id-without-hyphens", "id: expected a UUID." },
    { "id-too-long", "id: expected a UUID." },
    { "id-not-hexadecimal", "id: expected a UUID." },
    { "createdAt-missing", "createdAt: expected a string." },
    { "date-is-number", "createdAt: expected a string." },
    { "date-with-fraction", badDate },
    { "date-with-offset", badDate },
    { "date-without-zone", badDate },
    { "date-alone", badDate },
    { "date-in-lower-case", badDate },
    { "date-impossible", badDate },
    { "date-with-white-space", badDate },
    { "pinned-missing", "pinned: expected true or false." },
    { "pinned-is-number", "pinned: expected true or false." },
    { "pinned-is-null", "pinned: expected true or false." },
    { "content-missing", "content: expected an object." },
    { "content-is-text", "content: expected an object." },
    { "content-is-empty", badKinds },
    { "content-of-unknown-kind", badKinds },
    { "content-with-two-kinds", badKinds },
    { "payload-is-text", "text: expected an object." },
    { "payload-is-null", "text: expected an object." },
    { "text-missing", "_0: expected a string." },
    { "text-is-number", "_0: expected a string." },
    { "bookmark-missing", "bookmark: expected a string." },
    { "bookmark-with-foreign-characters", "bookmark: expected Base64." },
    { "bookmark-with-line-break", "bookmark: expected Base64." },
    { "bookmark-without-padding", "bookmark: expected Base64." },
    { "bookmark-with-url-alphabet", "bookmark: expected Base64." },
    { "bookmark-with-too-much-padding", "bookmark: expected Base64." },
    { "name-missing", "name: expected a string." },
    { "name-is-null", "name: expected a string." },
    { "url-missing", "url: expected a string." },
    { "url-is-empty", "url: expected an absolute URL." },
    { "url-relative", "url: expected an absolute URL." },
    { "url-with-space", "url: expected an absolute URL." },
    { "url-not-ascii", "url: expected an absolute URL." },
    { "title-is-number", "title: expected a string." },
    { "has-icon-missing", "hasIcon: expected true or false." },
    { "has-icon-is-text", "hasIcon: expected true or false." },
    { "file-name-missing", "fileName: expected a string." },
    { "file-name-is-number", "fileName: expected a string." },
};

} // namespace

void ShelfIndexTest::aBadIndexIsRefusedForItsReason_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    for (const BadIndex& bad : badIndexes) {
        QTest::newRow(bad.file) << QStringLiteral("bad/%1.json").arg(QLatin1String(bad.file))
                                << QString::fromLatin1(bad.reason);
    }
}

void ShelfIndexTest::aBadIndexIsRefusedForItsReason()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    const QByteArray bytes = fixture(file);
    QJsonParseError error;
    static_cast<void>(QJsonDocument::fromJson(bytes, &error));
    QCOMPARE(error.error == QJsonParseError::NoError, !reason.isEmpty());
    QCOMPARE(failureOf(bytes), reason.isEmpty() ? error.errorString() : reason);
}

void ShelfIndexTest::everyBadIndexIsInTheTable()
{
    QCOMPARE(QDir(dataPath(QStringLiteral("bad"))).entryList(QDir::Files).size(),
             static_cast<qsizetype>(std::size(badIndexes)));
}

void ShelfIndexTest::everyPrefixOfAnIndexIsRefused()
{
    const QByteArray whole = fixture(QStringLiteral("good/every-kind.json")).trimmed();
    for (qsizetype length = 0; length < whole.size(); ++length)
        QVERIFY2(failureOf(whole.left(length)) != QStringLiteral("(read)"), qPrintable(QString::number(length)));
}

QTEST_GUILESS_MAIN(ShelfIndexTest)
#include "ShelfIndexTest.moc"
