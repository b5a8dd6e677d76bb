#include "LinkPayload.h"

#include "ShelfItem.h"

#include <QTest>

#include <optional>

using namespace nookle;

class LinkPayloadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFormatsAreThoseOfBrowsersInTheirOrder();
    void eachFormatHoldsTheAddressByteForByte();
    void theTitleIsNoMarkup();
    void theTitleStaysOnItsLine();
    void withoutATitleTheAddressStandsForIt();

private:
    [[nodiscard]] static QByteArray data(const char* format, const std::optional<QString>& title)
    {
        const LinkContent link{ *LinkUrl::parse(address), title, false };
        return linkPayload(link).data(QLatin1String(format)).value_or("not offered");
    }

    inline static const QString address = QStringLiteral("https://EXAMPLE.com/%7euser/?a=1&b=%C3%BC#'x'");
};

namespace {

[[nodiscard]] QByteArray utf16(const QString& text)
{
    QByteArray bytes;
    for (const QChar each : text) {
        const char16_t unit = each.unicode();
        bytes.append(reinterpret_cast<const char*>(&unit), sizeof unit);
    }
    return bytes;
}

[[nodiscard]] QByteArray anchor(const QByteArray& content)
{
    return "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
           "<a href=\"https://EXAMPLE.com/%7euser/?a=1&amp;b=%C3%BC#'x'\">"
        + content + "</a>";
}

} // namespace

void LinkPayloadTest::theFormatsAreThoseOfBrowsersInTheirOrder()
{
    const QStringList expected{ QStringLiteral("text/x-moz-url"), QStringLiteral("_NETSCAPE_URL"),
                                QStringLiteral("text/html"), QStringLiteral("text/plain;charset=utf-8"),
                                QStringLiteral("text/plain") };
    QCOMPARE(linkPayload({ *LinkUrl::parse(address), std::nullopt, false }).formats(), expected);
}

void LinkPayloadTest::eachFormatHoldsTheAddressByteForByte()
{
    const QString title = QStringLiteral("A tïtle €");
    QCOMPARE(data("text/x-moz-url", title), utf16(QString(address + QLatin1Char('\n') + title)));
    QCOMPARE(data("_NETSCAPE_URL", title), QByteArray(address.toUtf8() + '\n' + title.toUtf8()));
    QCOMPARE(data("text/uri-list", title), QByteArray("not offered"));
    QCOMPARE(data("text/html", title), anchor("A tïtle €"));
    QCOMPARE(data("text/plain;charset=utf-8", title), address.toUtf8());
    QCOMPARE(data("text/plain", title), address.toUtf8());
}

void LinkPayloadTest::theTitleIsNoMarkup()
{
    QCOMPARE(data("text/html", QStringLiteral("</a><script>\"&amp;\"</script>")),
             anchor("&lt;/a&gt;&lt;script&gt;&quot;&amp;amp;&quot;&lt;/script&gt;"));
}

void LinkPayloadTest::theTitleStaysOnItsLine()
{
    QCOMPARE(data("_NETSCAPE_URL", QStringLiteral("two\nlines\r")), QByteArray(address.toUtf8() + "\ntwo lines "));
}

void LinkPayloadTest::withoutATitleTheAddressStandsForIt()
{
    QCOMPARE(data("_NETSCAPE_URL", std::nullopt), QByteArray(address.toUtf8() + '\n' + address.toUtf8()));
    QCOMPARE(data("text/html", QString()), anchor("https://EXAMPLE.com/%7euser/?a=1&amp;b=%C3%BC#'x'"));
}

QTEST_GUILESS_MAIN(LinkPayloadTest)
#include "LinkPayloadTest.moc"
