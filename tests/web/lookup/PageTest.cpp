#include "Page.h"

#include "PageTitle.h"

#include <QTest>

using namespace nookle;

namespace {

[[nodiscard]] QString titleOf(const QByteArray& page, const QByteArray& contentType = "text/html; charset=utf-8")
{
    return readPage(page, contentType).title.value_or(QStringLiteral("(none)"));
}

} // namespace

class PageTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTitleIsFound_data();
    void theTitleIsFound();
    void emptyElementsEndInXhtml();
    void theCharacterSetIsFound_data();
    void theCharacterSetIsFound();
    void theHeadIsOver_data();
    void theHeadIsOver();
    void theHeadIsNotOver_data();
    void theHeadIsNotOver();
    void anOverlongTitleIsCutBetweenCharacters();
    void iconsAreCollected();
    void theFirstBaseCounts();
    void noMoreThanSomeIconsAreKept();
    void hostilePagesAreReadInLinearTime_data();
    void hostilePagesAreReadInLinearTime();
};

void PageTest::theTitleIsFound_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("title");
    const auto row = [](const char* name, const QByteArray& page, const char* title) {
        QTest::newRow(name) << page << QString::fromUtf8(title);
    };
    row("plain", "<html><head><title>One</title></head><body>", "One");
    row("without any other tag", "<title>One</title>", "One");
    row("empty page", "", "(none)");
    row("no title", "<head></head><body><p>Text</p>", "(none)");
    row("empty", "<title></title><body>", "(none)");
    row("only white space", "<title> \n&nbsp;\t</title><body>", "(none)");
    row("the first one with text", "<title> </title><title>Two</title><title>Three</title>", "Two");
    row("Open Graph before", "<meta property='og:title' content='Graph'><title>One</title>", "Graph");
    row("Open Graph after", "<title>One</title><meta content=\"Graph\" property=\"og:title\">", "Graph");
    row("Open Graph by name", "<title>One</title><meta name=og:title content=Graph>", "Graph");
    row("empty Open Graph", "<title>One</title><meta property='og:title' content=' '>", "One");
    row("references", "<title>Q&amp;A &#8212; &eacute;&#x41;&lt;b&gt; AT&T</title>", "Q&A — éA<b> AT&T");
    row("references to the signs of a code page", "<title>&#145;It&#146s&#x92; &#x097; &#0128;&#1056;</title>",
        "‘It’s’ — €Р");
    row("references in attributes", "<meta property='og:title' content='&quot;A&quot; &amp; B &gt;'>", "\"A\" & B >");
    row("white space", "<title>\n  One\t two\r\n\xc2\xa0three  </title>", "One two three");
    row("control characters",
        "<title>a\x01"
        "b&#7;c\x7f"
        "d\xc2\x85"
        "e</title>",
        "abcd e");
    row("direction overrides",
        "<title>a\xe2\x80\xae"
        "b\xe2\x81\xa7"
        "c\xe2\x80\xad"
        "d</title>",
        "abcd");
    row("direction marks stay",
        "<title>a\xe2\x80\x8f"
        "b</title>",
        "a\xe2\x80\x8f"
        "b");
    row("joined characters stay", "<title>\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x92\xbb</title>",
        "\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x92\xbb");
    row("escape sequences", "<title>a\x1b[31mb</title>", "a[31mb");
    row("NUL", QByteArray("<title>a\0b</title>", 18),
        "a\xef\xbf\xbd"
        "b");
    row("tags are text in a title", "<title>The <b>bold</b> & <!-- c --> tag</title>",
        "The <b>bold</b> & <!-- c --> tag");
    row("upper case", "<HEAD><TITLE>One</TITLE></HEAD>", "One");
    row("attributes", "<title id=x class='y>'>One</title>", "One");
    row("end tag with white space", "<title>One</title\n><title>Two</title>", "One");
    row("what only begins like its end", "<title>a</titles></tit</title>", "a</titles></tit");
    row("unclosed", "<title>One", "One");
    row("in a comment", "<!-- <title>No</title> --><title>One</title>", "One");
    row("after an empty comment", "<!--><title>One</title>", "One");
    row("after another empty comment", "<!---><title>One</title>", "One");
    row("after a comment with hyphens", "<!-- a -- b --- c ---><title>One</title>", "One");
    row("after a comment with a bang", "<!-- a --!><title>One</title>", "One");
    row("in a script", "<script>'<title>No</title>' </scriptx </script ><title>One</title>", "One");
    row("in a style", "<style><title>No</title></style><title>One</title>", "One");
    row("noscript is text in a title", "<title>The <noscript> tag</title>", "The <noscript> tag");
    row("noscript is text in Open Graph", "<meta property='og:title' content='</noscript>'>", "</noscript>");
    row("after an empty element of XHTML that is none of HTML", "<script src='a'/><title>No</title></script><title>One",
        "One");
    row("in noscript", "<noscript><title>No</title><img src='a'></noscript><title>One</title>", "One");
    row("in svg", "<svg><svg><title>No</title></svg><title>No</title></svg><title>One</title>", "One");
    row("after an empty svg", "<svg/><title>One</title>", "One");
    row("in a template", "<template><title>No</title></template><title>One</title>", "One");
    row("only in svg", "<head></head><body><svg><title>No</title></svg>", "(none)");
    row("after content that is misplaced", "<html><div><p>Banner</div><title>One</title>", "One");
    row("in the body", "<body><title>No</title>", "(none)");
    row("quotes in attributes", "<meta name=x content='a>\"b'><meta name=y content=It's><title>One</title>", "One");
    row("broken tags", "< a><a<b><//><!x><?php echo '>'?></><title>One</title>", "One");
    row("declarations", "<?xml version='1.0'?><!DOCTYPE html PUBLIC \"-//W3C//DTD\"><title>One</title>", "One");
}

void PageTest::theTitleIsFound()
{
    QFETCH(QByteArray, page);
    QFETCH(QString, title);
    QCOMPARE(titleOf(page), title);
}

void PageTest::emptyElementsEndInXhtml()
{
    const QByteArray page = "<html><head><script src='a'/><style/><title/><title>One</title></head>";
    QCOMPARE(titleOf(page, "application/xhtml+xml"), QStringLiteral("One"));
    QCOMPARE(titleOf(page, "text/html"), QStringLiteral("(none)"));
}

void PageTest::theCharacterSetIsFound_data()
{
    QTest::addColumn<QByteArray>("contentType");
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("title");
    const auto row = [](const char* name, const QByteArray& type, const QByteArray& page, const char* title) {
        QTest::newRow(name) << type << page << QString::fromUtf8(title);
    };
    const QByteArray russian = "<title>\xcf\xf0\xe8\xe2\xe5\xf2</title>";
    const QByteArray japanese = "<title>\x83\x65\x83\x58\x83\x67\x81\x40\x95\x5c\x8e\xa6</title>";
    const QByteArray utf8 = "<title>\xd0\x9f\xc3\xa9</title>";
    row("nothing said", "text/html", utf8, "Пé");
    row("header", "text/html; charset=windows-1251", russian, "Привет");
    row("header in quotes", "text/html; charset=\"Windows-1251\"", russian, "Привет");
    row("meta", "text/html", "<meta charset=windows-1251>" + russian, "Привет");
    row("meta after the title", "text/html", russian + "<meta charset='cp1251'>", "Привет");
    row("meta with content", "text/html",
        "<meta http-equiv='Content-Type' content='text/html; charset=windows-1251'>" + russian, "Привет");
    row("meta in a comment", "text/html", "<!-- <meta charset=windows-1251> -->" + utf8, "Пé");
    row("XML declaration", "application/xhtml+xml", "<?xml version='1.0' encoding='windows-1251'?>" + russian,
        "Привет");
    row("Shift-JIS in the header", "text/html; charset=Shift_JIS", japanese, "テスト 表示");
    row("Shift-JIS in meta", "text/html", "<meta charset=\"x-sjis\">" + japanese, "テスト 表示");
    row("EUC-JP", "text/html; charset=euc-jp", "<title>\xc6\xfc\xcb\xdc</title>", "日本");
    row("ISO-2022-JP", "text/html; charset=iso-2022-jp", "<title>\x1b$BF|K\\\x1b(B</title>", "日本");
    row("GBK", "text/html; charset=gb2312", "<title>\xd6\xd0\xb9\xfa</title>", "中国");
    row("Big5", "text/html; charset=big5", "<title>\xa4\xa4\xa4\xe5</title>", "中文");
    row("EUC-KR", "text/html; charset=euc-kr", "<title>\xc7\xd1\xb1\xb9</title>", "한국");
    row("Latin 1 is Windows-1252", "text/html; charset=iso-8859-1",
        "<title>\x93"
        "a\x94</title>",
        "“a”");
    row("the header beats meta", "text/html; charset=utf-8", "<meta charset=windows-1251>" + utf8, "Пé");
    row("a wrong header is believed", "text/html; charset=windows-1251", utf8, "РџГ©");
    row("an unknown header is not", "text/html; charset=klingon", "<meta charset=windows-1251>" + russian, "Привет");
    row("an unknown meta is not", "text/html", "<meta charset=klingon>" + utf8, "Пé");
    row("a second meta counts if the first is unknown", "text/html",
        "<meta charset=klingon><meta charset=windows-1251>" + russian, "Привет");
    row("the mark beats all", "text/html; charset=windows-1251", "\xef\xbb\xbf" + utf8, "Пé");
    row("UTF-16 by its mark", "text/html",
        QByteArray("\xff\xfe<\0t\0i\0t\0l\0e\0>\0A\0\x1f\x04<\0/\0t\0i\0t\0l\0e\0>\0", 36), "AП");
    row("UTF-16 big-endian", "text/html; charset=utf-16be",
        QByteArray("\0<\0t\0i\0t\0l\0e\0>\0A\x04\x1f\0<\0/\0t\0i\0t\0l\0e\0>", 34), "AП");
    row("UTF-16 in meta is not", "text/html", "<meta charset=utf-16>" + utf8, "Пé");
    row("broken UTF-8", "text/html",
        "<title>a\xff"
        "b\xe3</title>",
        "a\xef\xbf\xbd"
        "b\xef\xbf\xbd");
}

void PageTest::theCharacterSetIsFound()
{
    QFETCH(QByteArray, contentType);
    QFETCH(QByteArray, page);
    QFETCH(QString, title);
    QCOMPARE(titleOf(page, contentType), title);
}

void PageTest::theHeadIsOver_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::newRow("body") << QByteArray("<head></head><body>");
    QTest::newRow("frames") << QByteArray("<head></head><frameset>");
    QTest::newRow("end of the head, with a title") << QByteArray("<head><title>One</title></head>");
}

void PageTest::theHeadIsOver()
{
    QFETCH(QByteArray, page);
    QVERIFY(!readPage(page.chopped(1), "text/html").isHeadOver);
    QVERIFY(readPage(page, "text/html").isHeadOver);
}

void PageTest::theHeadIsNotOver_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::newRow("title") << QByteArray("<head><title>One</title><meta a><link b><base c><style></style>");
    QTest::newRow("content without a title") << QByteArray("<p>text</p>");
    QTest::newRow("end of the head without a title") << QByteArray("<head></head>");
    QTest::newRow("body in a comment") << QByteArray("<title>One</title><!-- <body> -->");
    QTest::newRow("body in a script") << QByteArray("<title>One</title><script>'<body>'</script>");
    QTest::newRow("image in noscript") << QByteArray("<title>One</title><noscript><img></noscript>");
    QTest::newRow("content in a template") << QByteArray("<title>One</title><template><body><p></head></template>");
}

void PageTest::theHeadIsNotOver()
{
    QFETCH(QByteArray, page);
    QVERIFY(!readPage(page, "text/html").isHeadOver);
}

void PageTest::anOverlongTitleIsCutBetweenCharacters()
{
    const QByteArray exact(maximumTitleLength, 'a');
    QCOMPARE(titleOf("<title>" + exact + "</title>"), QString::fromLatin1(exact));
    const QString cut = titleOf("<title>" + exact + "b</title>");
    QCOMPARE(cut.size(), maximumTitleLength);
    QCOMPARE(cut, QString(maximumTitleLength - 1, u'a') + QChar(0x2026));
    // One unit, then pairs of units that must not be torn apart.
    const QString pairs = titleOf("<title>a" + QByteArray("\xf0\x9f\x98\x80").repeated(5000) + "</title>");
    QVERIFY(pairs.size() <= maximumTitleLength);
    QVERIFY(pairs.isValidUtf16());
    QVERIFY(pairs.endsWith(QChar(0x2026)));
}

void PageTest::iconsAreCollected()
{
    const Page page = readPage("<link rel='Shortcut Icon' href=' a.ico '>"
                               "<link rel=apple-touch-icon-precomposed sizes=180x180 href=b.png>"
                               "<link rel='apple-touch-icon' href='c.png?a=1&amp;b=2'>"
                               "<link rel='icon' type='image/svg+xml' sizes=any href=d.svg media='(a: b)'>"
                               "<link rel='mask-icon' href=no.svg><link rel=stylesheet href=no.css>"
                               "<link rel=icon><link rel=icon href=''><link href=no>",
                               "text/html");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    const QList<IconLink> expected{
        { text("a.ico"), {}, {}, {}, false },
        { text("b.png"), text("180x180"), {}, {}, true },
        { text("c.png?a=1&b=2"), {}, {}, {}, true },
        { text("d.svg"), text("any"), text("image/svg+xml"), text("(a: b)"), false },
    };
    QCOMPARE(page.icons, expected);
}

void PageTest::theFirstBaseCounts()
{
    QCOMPARE(readPage("<base target=_top><base href='/a/'><base href='/b/'>", "text/html").baseHref,
             QStringLiteral("/a/"));
    QCOMPARE(readPage("<title>One</title>", "text/html").baseHref, QString());
}

void PageTest::noMoreThanSomeIconsAreKept()
{
    const Page page = readPage(QByteArray("<link rel=icon href=a>").repeated(1000), "text/html");
    QCOMPARE(page.icons.size(), Page::mostIcons);
}

void PageTest::hostilePagesAreReadInLinearTime_data()
{
    QTest::addColumn<QByteArray>("page");
    const auto filled = [](const char* part) {
        return QByteArray(part).repeated(1'000'000 / qsizetype(qstrlen(part)));
    };
    QTest::newRow("scripts that do not end") << "<title>One</title><script>" + filled("</scrip");
    QTest::newRow("comments that do not end") << "<title>One</title><!--" + filled("--");
    QTest::newRow("references") << "<title>One</title><meta content='" + filled("&a") + "'>";
    QTest::newRow("quotes that do not end") << "<title>One</title><meta a='" + filled("b>");
    QTest::newRow("angle brackets") << filled("<") + "a><title>One</title>";
    QTest::newRow("tags") << filled("<meta a>") + "<title>One</title>";
    QTest::newRow("titles") << "<title>One</title>" + filled("<title>a</title>");
}

// Milliseconds each, where a time that grows with the square is longer than ctest lets a test run.
void PageTest::hostilePagesAreReadInLinearTime()
{
    QFETCH(QByteArray, page);
    QCOMPARE(titleOf(page), QStringLiteral("One"));
}

QTEST_GUILESS_MAIN(PageTest)
#include "PageTest.moc"
