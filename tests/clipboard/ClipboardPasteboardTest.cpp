#include "ClipboardPasteboard.h"

#include "FakeImageConverter.h"
#include "FileUrl.h"
#include "ToolkitClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

#include <memory>

using namespace nookle;

class ClipboardPasteboardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void clearingLeavesNothing();
    void whatCannotBeCopiedIsTold();
    void aFileIsItsAddress();
    void textIsText();
    void aLinkIsAddressAndText();
    void addressesAreAListAndTextIsThereIfThereIsAny();
    void anImageIsThereOnceItIsConverted();
    void anImageThatCannotBeReadWritesNothing();
    void whatIsCopiedMeanwhileStays();

    void whatAnotherProgramCopiedIsRead();
    void anEmptyClipboardOffersNothing();
    void aClipboardThatWasReplacedDeliversNothing();
    void aQuestionEndsWithItsContent();

private:
    [[nodiscard]] static const QMimeData& clipboard()
    {
        static const QMimeData nothing;
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        return data ? *data : nothing;
    }

    [[nodiscard]] static QStringList formats(ClipboardContent& content)
    {
        QStringList found{ QStringLiteral("not answered") };
        content.askFormats([&](const QStringList& formats) { found = formats; });
        QCoreApplication::processEvents();
        return found;
    }

    [[nodiscard]] static QByteArray bytes(ClipboardContent& content, const QString& format)
    {
        QByteArray found = "not answered";
        content.askData(format, [&](const QByteArray& bytes) { found = bytes; });
        QCoreApplication::processEvents();
        return found;
    }

    std::unique_ptr<FakeImageConverter> m_converter;
    std::unique_ptr<ToolkitClipboard> m_clipboard;
    std::unique_ptr<ClipboardPasteboard> m_pasteboard;
    const QUrl m_file = fileUrl("/a b.png");
};

void ClipboardPasteboardTest::init()
{
    m_pasteboard.reset();
    m_converter = std::make_unique<FakeImageConverter>();
    m_clipboard = std::make_unique<ToolkitClipboard>();
    m_pasteboard = std::make_unique<ClipboardPasteboard>(*m_converter, *m_clipboard);
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
}

void ClipboardPasteboardTest::clearingLeavesNothing()
{
    m_pasteboard->clear();
    QVERIFY(clipboard().formats().isEmpty());
}

void ClipboardPasteboardTest::whatCannotBeCopiedIsTold()
{
    QString told;
    m_pasteboard->onFailed = [&](const QString& reason) { told = reason; };
    m_clipboard->onCopyFailed(QStringLiteral("Not now."));
    QCOMPARE(told, QStringLiteral("Not now."));
}

void ClipboardPasteboardTest::aFileIsItsAddress()
{
    m_pasteboard->writeFile(m_file);
    QCOMPARE(clipboard().data(QStringLiteral("text/uri-list")).trimmed(), QByteArray("file:///a%20b.png"));
}

void ClipboardPasteboardTest::textIsText()
{
    m_pasteboard->writeText(QStringLiteral(" words\n"));
    QCOMPARE(clipboard().text(), QStringLiteral(" words\n"));
}

void ClipboardPasteboardTest::aLinkIsAddressAndText()
{
    // An address that the toolkit's URLs would rewrite.
    m_pasteboard->writeLink(QStringLiteral("https://Example.com/%7Ea"));
    QCOMPARE(clipboard().text(), QStringLiteral("https://Example.com/%7Ea"));
    QVERIFY(clipboard().hasUrls());
    QCOMPARE(clipboard().data(QStringLiteral("text/uri-list")), QByteArray("https://Example.com/%7Ea\r\n"));
}

void ClipboardPasteboardTest::addressesAreAListAndTextIsThereIfThereIsAny()
{
    const QStringList addresses{ QStringLiteral("file:///a%20b"), QStringLiteral("https://Example.com/%7Ea") };
    m_pasteboard->writeAddresses(addresses, QStringLiteral("one\n\ntwo"));
    QCOMPARE(clipboard().data(QStringLiteral("text/uri-list")),
             QByteArray("file:///a%20b\r\nhttps://Example.com/%7Ea\r\n"));
    QCOMPARE(clipboard().text(), QStringLiteral("one\n\ntwo"));
    m_pasteboard->writeAddresses(addresses, {});
    QVERIFY(!clipboard().hasFormat(QStringLiteral("text/plain")));
    QVERIFY(clipboard().hasFormat(QStringLiteral("text/uri-list")));
}

void ClipboardPasteboardTest::anImageIsThereOnceItIsConverted()
{
    m_pasteboard->clear();
    m_pasteboard->writeImage(m_file);
    QCOMPARE(std::get<QUrl>(m_converter->asked.first().source), m_file);
    QVERIFY(clipboard().formats().isEmpty());
    QVERIFY(m_converter->finish(0, "png"));
    QCOMPARE(clipboard().data(QStringLiteral("image/png")), QByteArray("png"));
}

void ClipboardPasteboardTest::anImageThatCannotBeReadWritesNothing()
{
    m_pasteboard->clear();
    m_pasteboard->writeImage(m_file);
    QVERIFY(m_converter->finish(0, std::nullopt));
    QVERIFY(clipboard().formats().isEmpty());
}

void ClipboardPasteboardTest::whatIsCopiedMeanwhileStays()
{
    m_pasteboard->writeImage(m_file);
    m_pasteboard->writeText(QStringLiteral("words"));
    QVERIFY(!m_converter->finish(0, "png"));
    m_pasteboard->writeImage(m_file);
    QGuiApplication::clipboard()->setText(QStringLiteral("of another program"));
    QVERIFY(!m_converter->finish(1, "png"));
    QCOMPARE(clipboard().text(), QStringLiteral("of another program"));
}

void ClipboardPasteboardTest::whatAnotherProgramCopiedIsRead()
{
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("text/uri-list"), "file:///a%FF.png\r\n");
    data->setData(QStringLiteral("image/png"), "pixels");
    QGuiApplication::clipboard()->setMimeData(data.release());
    const auto contents = m_pasteboard->contents();
    QCOMPARE(formats(*contents), QStringList({ QStringLiteral("text/uri-list"), QStringLiteral("image/png") }));
    QCOMPARE(bytes(*contents, QStringLiteral("text/uri-list")), QByteArray("file:///a%FF.png\r\n"));
    QCOMPARE(bytes(*contents, QStringLiteral("image/png")), QByteArray("pixels"));
}

void ClipboardPasteboardTest::anEmptyClipboardOffersNothing()
{
    m_pasteboard->clear();
    QVERIFY(formats(*m_pasteboard->contents()).isEmpty());
    QVERIFY(bytes(*m_pasteboard->contents(), QStringLiteral("text/plain")).isEmpty());
}

void ClipboardPasteboardTest::aClipboardThatWasReplacedDeliversNothing()
{
    const auto contents = m_pasteboard->contents();
    QGuiApplication::clipboard()->setText(QStringLiteral("after"));
    QVERIFY(bytes(*contents, QStringLiteral("text/plain")).isEmpty());
}

void ClipboardPasteboardTest::aQuestionEndsWithItsContent()
{
    auto contents = m_pasteboard->contents();
    contents->askFormats([](const QStringList&) { QFAIL("an answer without a question"); });
    contents.reset();
    QCoreApplication::processEvents();
}

QTEST_MAIN(ClipboardPasteboardTest)
#include "ClipboardPasteboardTest.moc"
