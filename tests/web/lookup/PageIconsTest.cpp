#include "PageIcons.h"

#include "ContentSniffing.h"
#include "DataUrl.h"

#include <QStringList>
#include <QTest>

using namespace nookle;

namespace {

const QString noBase;

[[nodiscard]] IconLink icon(const char* href, const char* sizes = "", const char* type = "")
{
    return IconLink{ QString::fromLatin1(href), QString::fromLatin1(sizes), QString::fromLatin1(type), {}, false };
}

[[nodiscard]] IconLink touchIcon(const char* href, const char* sizes = "")
{
    IconLink link = icon(href, sizes);
    link.isTouchIcon = true;
    return link;
}

[[nodiscard]] QStringList places(const QList<IconLink>& links, const QString& base = noBase)
{
    QStringList texts;
    for (const QUrl& url : iconPlaces(QUrl(QStringLiteral("https://u:p@a.test:8443/b/c?d#e")), base, links))
        texts.append(url.toString());
    return texts;
}

[[nodiscard]] QString firstPlace(const QList<IconLink>& links)
{
    return places(links).constFirst().section(u'/', -1);
}

} // namespace

class PageIconsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBestSizeIsFirst_data();
    void theBestSizeIsFirst();
    void theSitesOwnIconIsLast();
    void placesAreRelativeToTheBase();
    void onlyFewPlacesAreTried();
    void whatNobodyCanReadOrFetchIsLeftOut();
    void dataAddressesAreDecoded_data();
    void dataAddressesAreDecoded();
    void iconsAreKnownByTheirFirstBytes();
    void pagesAreKnownByTheirTypeOrFirstBytes();
};

void PageIconsTest::theBestSizeIsFirst_data()
{
    QTest::addColumn<QList<IconLink>>("links");
    QTest::addColumn<QString>("first");
    const auto row = [](const char* name, const QList<IconLink>& links, const char* first) {
        QTest::newRow(name) << links << QString::fromLatin1(first);
    };
    row("exactly", { icon("a", "32x32"), icon("b", "56x56"), icon("c", "57x57") }, "b");
    row("nearest above", { icon("a", "512x512"), icon("b", "64x64"), icon("c", "192x192") }, "b");
    row("too large rather than too small", { icon("a", "55x55"), icon("b", "1024x1024") }, "b");
    row("the largest of the small", { icon("a", "16x16"), icon("b", "48x48"), icon("c", "32x32") }, "b");
    row("several sizes in one", { icon("a", "16x16 64X64"), icon("b", "96x96") }, "a");
    row("scalable", { icon("a", "57x57"), icon("b", "any", "image/svg+xml") }, "b");
    row("scalable by its name", { icon("a", "57x57"), icon("b.svg", "any") }, "b.svg");
    row("any is no size of other formats", { icon("a", "64x64"), icon("b.ico", "any") }, "a");
    row("a touch icon without a size is large", { icon("a"), touchIcon("b"), icon("c", "192x192") }, "b");
    row("an icon without a size is small", { icon("a"), icon("b", "48x48") }, "b");
    row("nonsense is no size", { icon("a", "0x0"), icon("b", "-1x5 hello 9999999999x1"), icon("c", "60x60") }, "c");
    row("the last of equals", { icon("a", "64x64"), icon("b", "64x64") }, "b");
    IconLink dark = icon("b", "64x64");
    dark.media = QStringLiteral("(prefers-color-scheme: dark)");
    row("not for a special look", { icon("a", "96x96"), dark }, "a");
}

void PageIconsTest::theBestSizeIsFirst()
{
    QFETCH(QList<IconLink>, links);
    QFETCH(QString, first);
    QCOMPARE(firstPlace(links), first);
}

void PageIconsTest::theSitesOwnIconIsLast()
{
    const QString own = QStringLiteral("https://a.test:8443/favicon.ico");
    QCOMPARE(places({}), QStringList{ own });
    QCOMPARE(places({ icon("x.png") }), QStringList({ QStringLiteral("https://u:p@a.test:8443/b/x.png"), own }));
    QCOMPARE(places({ icon("//a.test:8443/favicon.ico") }), QStringList{ own });
}

void PageIconsTest::placesAreRelativeToTheBase()
{
    const auto first = [](const char* href, const char* base) {
        return places({ icon(href) }, QString::fromLatin1(base)).constFirst();
    };
    QCOMPARE(first("x.png", "/y/"), QStringLiteral("https://u:p@a.test:8443/y/x.png"));
    QCOMPARE(first("x.png", "https://cdn.test/z/"), QStringLiteral("https://cdn.test/z/x.png"));
    QCOMPARE(first("/x.png", "https://cdn.test/z/"), QStringLiteral("https://cdn.test/x.png"));
    QCOMPARE(first("http://d.test/x.png", "/y/"), QStringLiteral("http://d.test/x.png"));
    QCOMPARE(first("x.png", "http://[broken"), QStringLiteral("https://u:p@a.test:8443/b/x.png"));
}

void PageIconsTest::onlyFewPlacesAreTried()
{
    QList<IconLink> links;
    for (const char* href : { "1", "2", "3", "4", "5" })
        links.append(icon(href));
    QCOMPARE(places(links).size(), maximumIconPlaces + 1);
}

void PageIconsTest::whatNobodyCanReadOrFetchIsLeftOut()
{
    const QList<IconLink> links{ icon("a", "", "image/avif"), icon("file:///etc/passwd"), icon("ftp://a.test/x"),
                                 icon("javascript:x"),        icon("http://[broken"),     icon("chrome://x/y") };
    QCOMPARE(places(links).size(), 1);
    QCOMPARE(firstPlace({ icon("a", "", "IMAGE/PNG; x=y") }), QStringLiteral("a"));
    QCOMPARE(places({ icon("data:image/png;base64,AAAA") }).constFirst(), QStringLiteral("data:image/png;base64,AAAA"));
}

void PageIconsTest::dataAddressesAreDecoded_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* url, const QByteArray& bytes) {
        QTest::newRow(url) << QString::fromLatin1(url) << bytes;
    };
    row("data:,abc", "abc");
    row("data:image/svg+xml,%3Csvg%3E", "<svg>");
    row("data:image/svg+xml;utf8,<svg a='b?c'>", "<svg a='b?c'>");
    row("data:image/png;base64,iVBORw==", "\x89PNG");
    row("data:image/png;base64,iVBORw%3D%3D", "\x89PNG");
    row("data:image/png;base64,iVBO Rw==", "\x89PNG");
    row("DATA:image/png;BASE64,iVBORw==", "\x89PNG");
    row("data:image/png;base64,////", "\xff\xff\xff");
    row("data:image/png;base64,i*", "(none)");
    row("data:image/png", "(none)");
    row("http://a.test/,", "(none)");
}

void PageIconsTest::dataAddressesAreDecoded()
{
    QFETCH(QString, url);
    QFETCH(QByteArray, bytes);
    QCOMPARE(bytesOfDataUrl(QUrl(url)).value_or("(none)"), bytes);
}

void PageIconsTest::iconsAreKnownByTheirFirstBytes()
{
    const QList<QByteArray> icons{ "\x89PNG\r\n\x1a\n",
                                   "\xff\xd8\xff\xe0",
                                   "GIF89a",
                                   "GIF87a",
                                   "RIFF????WEBPVP8 ",
                                   QByteArray("\0\0\1\0\1\0\x10\x10", 8),
                                   "<svg xmlns='x'/>",
                                   "\xef\xbb\xbf<?xml version='1.0'?>\n<!-- x --><svg>" };
    for (const QByteArray& bytes : icons)
        QVERIFY2(looksLikeIcon(bytes), bytes.constData());
    const QList<QByteArray> others{ "",
                                    "<html><svg></svg></html>",
                                    "<!doctype html><p><svg>",
                                    "%PDF-1.4",
                                    "PNG",
                                    "RIFF????WAVE",
                                    QByteArray("\0\0\1\0", 4),
                                    QByteArray("\0\0\2\0\1\0\x10\x10", 8),
                                    "a <svg>" };
    for (const QByteArray& bytes : others)
        QVERIFY2(!looksLikeIcon(bytes), bytes.constData());
}

void PageIconsTest::pagesAreKnownByTheirTypeOrFirstBytes()
{
    for (const char* type : { "text/html", "TEXT/HTML;charset=x", " application/xhtml+xml " })
        QCOMPARE(isPageType(type), true);
    for (const char* type : { "image/png", "application/pdf", "text/plain", "text/htmlx", "application/json" })
        QCOMPARE(isPageType(type), false);
    QVERIFY(!isPageType(""));
    QVERIFY(!isPageType(";charset=utf-8"));
    for (const char* page : { "<html>", "  \n<!DOCTYPE html>", "<p>", "\xef\xbb\xbf<title>", "<?xml?>", "\xff\xfe<" })
        QVERIFY2(looksLikePage(page), page);
    for (const char* other : { "", "<", "< a", "\x89PNG", "%PDF-1.7", "{\"a\": \"<b>\"}", "text" })
        QVERIFY2(!looksLikePage(other), other);
}

QTEST_GUILESS_MAIN(PageIconsTest)
#include "PageIconsTest.moc"
