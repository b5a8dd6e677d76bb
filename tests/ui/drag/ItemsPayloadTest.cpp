#include "ItemsPayload.h"

#include "FakeFileTransfers.h"
#include "FileUrl.h"
#include "PayloadMimeData.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class ItemsPayloadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void oneItemOffersTheFormatsOfItsKind();
    void severalFilesAreOneListInTheirOrder();
    void theToolkitSeesAllFiles();
    void severalTextsAreJoinedByABlankLine();
    void severalLinksAreAListOfAddresses();
    void linksAndTextsAreAText();
    void aMixtureOffersItsFilesAndEverythingAsText();
    void aKeyCoversAllFiles();
    void eachKeyIsFilledAnew();
    void noKeyIsOfferedIfItDoesNotCoverEverything_data();
    void noKeyIsOfferedIfItDoesNotCoverEverything();
    void soManyFilesThatTheirReceiverWouldWaitHaveNoKey();

private:
    [[nodiscard]] static CarriedItem text(const char* content)
    {
        ShelfItem item;
        item.content = TextContent{ QString::fromUtf8(content) };
        return { item, std::nullopt };
    }
    [[nodiscard]] static CarriedItem link(const char* address, const char* title)
    {
        ShelfItem item;
        item.content = LinkContent{ *LinkUrl::parse(QString::fromUtf8(address)), QString::fromUtf8(title), false };
        return { item, std::nullopt };
    }
    [[nodiscard]] static CarriedItem referredTo(const QUrl& file)
    {
        ShelfItem item;
        item.content = FileContent{ "bookmark", file.fileName() };
        return { item, file };
    }
    /// A file on disk.
    [[nodiscard]] CarriedItem file(const char* name) const
    {
        QFile made(m_folder.filePath(QString::fromUtf8(name)));
        if (!made.open(QIODevice::WriteOnly))
            return {};
        return referredTo(fileUrl(made.fileName().toUtf8()));
    }
    [[nodiscard]] QByteArray data(const QList<CarriedItem>& items, const QString& format)
    {
        return itemsPayload(items, m_transfers).data(format).value_or("not offered");
    }

    inline static const QString keyFormat = QStringLiteral("application/vnd.portal.filetransfer");
    inline static const QString listFormat = QStringLiteral("text/uri-list");
    inline static const QString textFormat = QStringLiteral("text/plain");
    inline static const QString utf8Format = QStringLiteral("text/plain;charset=utf-8");

    QTemporaryDir m_folder;
    FakeFileTransfers m_transfers;
};

void ItemsPayloadTest::init()
{
    m_transfers = FakeFileTransfers();
}

void ItemsPayloadTest::oneItemOffersTheFormatsOfItsKind()
{
    QCOMPARE(itemsPayload({ text("words") }, m_transfers).formats(), QStringList({ utf8Format, textFormat }));
    QCOMPARE(data({ text("words") }, textFormat), QByteArray("words"));
    QVERIFY(itemsPayload({ link("https://example.com/", "a") }, m_transfers)
                .formats()
                .contains(QStringLiteral("_NETSCAPE_URL")));
    QVERIFY(itemsPayload({ file("a") }, m_transfers).formats().contains(QStringLiteral("text/x-moz-url")));
}

void ItemsPayloadTest::severalFilesAreOneListInTheirOrder()
{
    const QList<CarriedItem> files{ file("b \xc3\xbc.txt"), file("a.txt"), file("100%.txt") };
    const QByteArray first = files[0].file->toEncoded();
    const QByteArray second = files[1].file->toEncoded();
    const QByteArray third = files[2].file->toEncoded();
    QCOMPARE(itemsPayload(files, m_transfers).formats(), QStringList({ listFormat, utf8Format, textFormat }));
    QCOMPARE(data(files, listFormat), QByteArray(first + "\r\n" + second + "\r\n" + third + "\r\n"));
    QCOMPARE(data(files, textFormat), QByteArray(first + '\n' + second + '\n' + third));
}

// On Wayland the toolkit hands over what it makes of its own list of addresses.
void ItemsPayloadTest::theToolkitSeesAllFiles()
{
    const QList<CarriedItem> files{ file("a b.txt"), file("100% #1 ?.txt") };
    const PayloadMimeData mimeData(std::make_shared<DragPayload>(itemsPayload(files, m_transfers)));
    QCOMPARE(mimeData.urls(), QList<QUrl>({ *files[0].file, *files[1].file }));
}

void ItemsPayloadTest::severalTextsAreJoinedByABlankLine()
{
    const QList<CarriedItem> texts{ text("one\ntwo"), text("three\n"), text("four \xe2\x82\xac") };
    QCOMPARE(itemsPayload(texts, m_transfers).formats(), QStringList({ utf8Format, textFormat }));
    QCOMPARE(data(texts, textFormat), QByteArray("one\ntwo\n\nthree\n\nfour \xe2\x82\xac"));
}

void ItemsPayloadTest::severalLinksAreAListOfAddresses()
{
    const QList<CarriedItem> links{ link("https://example.com/?a&b", "One <b>"), link("https://example.org/", "Two") };
    const QString html = QStringLiteral("text/html");
    QCOMPARE(itemsPayload(links, m_transfers).formats(), QStringList({ html, utf8Format, textFormat }));
    QCOMPARE(data(links, textFormat), QByteArray("https://example.com/?a&b\nhttps://example.org/"));
    QCOMPARE(data(links, html),
             QByteArray("<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
                        "<a href=\"https://example.com/?a&amp;b\">One &lt;b&gt;</a><br>\n"
                        "<a href=\"https://example.org/\">Two</a>"));
}

void ItemsPayloadTest::linksAndTextsAreAText()
{
    const QList<CarriedItem> items{ link("https://example.com/", "One"), text("words") };
    QCOMPARE(itemsPayload(items, m_transfers).formats(), QStringList({ utf8Format, textFormat }));
    QCOMPARE(data(items, textFormat), QByteArray("https://example.com/\n\nwords"));
}

void ItemsPayloadTest::aMixtureOffersItsFilesAndEverythingAsText()
{
    const QList<CarriedItem> items{ text("words"), file("a.txt"), link("https://example.com/", "One"), file("b.txt") };
    const QByteArray first = items[1].file->toEncoded();
    const QByteArray second = items[3].file->toEncoded();
    QCOMPARE(data(items, listFormat), QByteArray(first + "\r\n" + second + "\r\n"));
    QCOMPARE(data(items, textFormat), QByteArray("words\n\n" + first + "\n\nhttps://example.com/\n\n" + second));
}

void ItemsPayloadTest::aKeyCoversAllFiles()
{
    m_transfers.key = "1234";
    const QList<CarriedItem> items{ file("a.txt"), text("words"), file("b.txt") };
    const DragPayload payload = itemsPayload(items, m_transfers);
    QCOMPARE(payload.formats().first(), keyFormat);
    QVERIFY(m_transfers.added.isEmpty());
    QCOMPARE(payload.data(keyFormat), QByteArray("1234\0", 5));
    QCOMPARE(m_transfers.added.size(), 2);
    QCOMPARE(m_transfers.added[0].second, *items[0].file);
    QCOMPARE(m_transfers.added[1].second, *items[2].file);
}

void ItemsPayloadTest::eachKeyIsFilledAnew()
{
    m_transfers.key = "first";
    const DragPayload payload = itemsPayload({ file("a.txt"), file("b.txt") }, m_transfers);
    m_transfers.key = "second";
    QCOMPARE(payload.data(keyFormat), QByteArray("first\0", 6));
    QCOMPARE(payload.data(keyFormat), QByteArray("second\0", 7));
    QCOMPARE(m_transfers.added.size(), 4);
}

void ItemsPayloadTest::noKeyIsOfferedIfItDoesNotCoverEverything_data()
{
    QTest::addColumn<QUrl>("other");
    QTest::newRow("folder") << fileUrl("/");
    QTest::newRow("file that is gone") << fileUrl("/of/nobody");
}

// A program that takes the key does not look at the addresses.
void ItemsPayloadTest::noKeyIsOfferedIfItDoesNotCoverEverything()
{
    QFETCH(const QUrl, other);
    m_transfers.key = "1234";
    QVERIFY(!itemsPayload({ file("a.txt"), referredTo(other) }, m_transfers).formats().contains(keyFormat));
    QCOMPARE(m_transfers.begun, 0);
}

void ItemsPayloadTest::soManyFilesThatTheirReceiverWouldWaitHaveNoKey()
{
    m_transfers.key = "1234";
    const CarriedItem each = file("a.txt");
    QVERIFY(itemsPayload(QList<CarriedItem>(1000, each), m_transfers).formats().contains(keyFormat));
    const DragPayload many = itemsPayload(QList<CarriedItem>(1001, each), m_transfers);
    QVERIFY(!many.formats().contains(keyFormat));
    QCOMPARE(many.data(listFormat).value_or(QByteArray()).count("\r\n"), 1001);
}

QTEST_GUILESS_MAIN(ItemsPayloadTest)
#include "ItemsPayloadTest.moc"
