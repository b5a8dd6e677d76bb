#include "ShelfDesktop.h"
#include "Waiting.h"

#include <QBuffer>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonObject>
#include <QUrl>
#include <QtTest>

#include <filesystem>

using namespace nookle::e2e;

namespace {

/// What is on the shelf.
enum class Kind { file, folder, image, link, text, longText };

/// Each is a program of its own, with one window.
enum class Toolkit { gtk3, gtk4, qt };

const QByteArray address("http://127.0.0.1:9/%7Ea/?b=%c3%bc&c=1#x");
const QByteArray title("T\xc3\xaftle <b>&amp;</b> \xe2\x82\xac");
const QByteArray shortText(" words, \xe2\x82\xac 5\n\ttwo lines \xf0\x9f\x98\x80\n");

/// Some megabytes, of which no two lines are alike.
[[nodiscard]] QByteArray longText()
{
    QByteArray text;
    for (int line = 0; text.size() < 3'000'000; ++line)
        text += "Line " + QByteArray::number(line) + " costs \xe2\x82\xac " + QByteArray::number(line * 7) + ".\n";
    return text;
}

[[nodiscard]] QByteArray png()
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(QColor(0x20, 0x80, 0x40));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "PNG") ? bytes : QByteArray();
}

[[nodiscard]] QByteArray utf16(const QByteArray& utf8)
{
    const QString text = QString::fromUtf8(utf8);
    return { reinterpret_cast<const char*>(text.utf16()), text.size() * qsizetype{ 2 } };
}

[[nodiscard]] QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class DragOutEndToEndTest : public QObject, private ShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { tearDownDesktop(); }

    void everyItemArrivesInEveryProgramByteForByte_data();
    void everyItemArrivesInEveryProgramByteForByte();
    void aLinkArrivesInEachFormatByteForByte_data();
    void aLinkArrivesInEachFormatByteForByte();
    void aLinkIsAnAddressToQtPrograms();
    void anImageArrivesWithItsBytes();

private:
    [[nodiscard]] QString home(const char* path) const { return m_desktop->home(QLatin1String(path)); }
    [[nodiscard]] bool putOnShelf(Kind kind);
    /// The address of the file that is on the shelf.
    [[nodiscard]] QByteArray fileAddress(Kind kind) const;
    [[nodiscard]] std::optional<XWindow> openTarget(Toolkit toolkit, const QString& taken);
    [[nodiscard]] bool dragTileTo(const XWindow& target);
    [[nodiscard]] bool arrives(const QByteArray& expected);
};

void DragOutEndToEndTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_GTK_TARGET"), "run it with ctest, which says where the programs are");
    QVERIFY(setUpDesktop({ QSize(1280, 800), QStringLiteral("openbox"), false }));
    QVERIFY(QDir().mkpath(home("files/a folder %")));
    // Drawn by the processor: the servers of the tests have nothing else.
    m_desktop->setVariable(QStringLiteral("GSK_RENDERER"), QStringLiteral("cairo"));
    m_desktop->setVariable(QStringLiteral("GDK_BACKEND"), QStringLiteral("x11"));
}

void DragOutEndToEndTest::init()
{
    std::filesystem::remove_all(home("data/Nookle").toStdString());
    QVERIFY(m_shelf->start());
}

void DragOutEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("drag-out-%1.png")
                        .arg(QString::fromLatin1(QTest::currentDataTag()).replace(QLatin1Char('/'), QLatin1Char('-'))));
    m_peer.reset();
    QVERIFY(m_shelf->stop());
}

bool DragOutEndToEndTest::putOnShelf(Kind kind)
{
    const bool isOffered = [&] {
        switch (kind) {
        case Kind::file:
        case Kind::folder:
            return offerToShelf(fileAddress(kind) + "\r\n");
        case Kind::image:
            return offerToShelf(png(), QStringLiteral("image/png"));
        case Kind::link:
            return offerToShelf(address + '\n' + title, QStringLiteral("_NETSCAPE_URL"));
        case Kind::text:
            return offerToShelf(shortText, QStringLiteral("text/plain"));
        case Kind::longText:
            return offerToShelf(longText(), QStringLiteral("text/plain"));
        }
        return false;
    }();
    return isOffered && waitFor([this] { return m_shelf->savedItems().size() == 1; });
}

QByteArray DragOutEndToEndTest::fileAddress(Kind kind) const
{
    if (kind == Kind::image) {
        const QJsonObject item = m_shelf->savedItems().value(0);
        const QJsonObject image =
            item.value(QLatin1String("content")).toObject().value(QLatin1String("image")).toObject();
        const QString path =
            QStringLiteral("data/Nookle/Files/%1/%2")
                .arg(item.value(QLatin1String("id")).toString(), image.value(QLatin1String("fileName")).toString());
        return QUrl::fromLocalFile(m_desktop->home(path)).toEncoded();
    }
    const auto* path = kind == Kind::folder ? "files/a folder %" : "files/note one.txt";
    return QUrl::fromLocalFile(home(path)).toEncoded();
}

std::optional<XWindow> DragOutEndToEndTest::openTarget(Toolkit toolkit, const QString& taken)
{
    const QString result = home("received");
    if (toolkit == Toolkit::qt)
        return openPeer({ QStringLiteral("take"), taken, result });
    const QString version = toolkit == Toolkit::gtk3 ? QStringLiteral("3") : QStringLiteral("4");
    return openPeer({ version, taken, result }, qEnvironmentVariable("NOOKLE_GTK_TARGET"));
}

bool DragOutEndToEndTest::dragTileTo(const XWindow& target)
{
    for (const char* file : { "received", "received.over" })
        QFile::remove(home(file));
    if (m_shelf->startAgain() != 0 || !waitFor([this] { return m_shelf->isAtRest(rightEdge()); })
        || !screen().beginDrag(m_shelf->firstTile()))
        return false;
    screen().moveTo(target.frame.center());
    // A source tells of the next movement when it has heard whether the drop would be taken.
    constexpr qsizetype enough = 3;
    const bool isTaken = waitFor([this] {
        screen().moveTo(screen().pointer() + QPoint(12, 0));
        screen().moveTo(screen().pointer() - QPoint(12, 0));
        return bytesOf(home("received.over")).size() >= enough;
    });
    screen().release();
    return isTaken;
}

bool DragOutEndToEndTest::arrives(const QByteArray& expected)
{
    const bool isThere = waitFor([this] { return QFile::exists(home("received")); });
    if (isThere && received() == expected)
        return true;
    qInfo("%lld of %lld bytes arrived: %s", static_cast<long long>(received().size()),
          static_cast<long long>(expected.size()), received().left(300).constData());
    return false;
}

void DragOutEndToEndTest::everyItemArrivesInEveryProgramByteForByte_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<Toolkit>("toolkit");
    const std::vector<std::pair<const char*, Kind>> kinds{
        { "a file", Kind::file }, { "a folder", Kind::folder }, { "an image", Kind::image },
        { "a link", Kind::link }, { "a text", Kind::text },     { "a text of some megabytes", Kind::longText },
    };
    const std::vector<std::pair<const char*, Toolkit>> toolkits{ { "GTK 3", Toolkit::gtk3 },
                                                                 { "GTK 4", Toolkit::gtk4 },
                                                                 { "Qt", Toolkit::qt } };
    for (const auto& [kindName, kind] : kinds) {
        for (const auto& [toolkitName, toolkit] : toolkits)
            QTest::addRow("%s into %s", kindName, toolkitName) << kind << toolkit;
    }
}

void DragOutEndToEndTest::everyItemArrivesInEveryProgramByteForByte()
{
    QFETCH(Kind, kind);
    QFETCH(Toolkit, toolkit);
    const bool isText = kind == Kind::link || kind == Kind::text || kind == Kind::longText;
    QVERIFY(putOnShelf(kind));

    QString taken = isText ? QStringLiteral("text") : QStringLiteral("files");
    if (toolkit == Toolkit::qt)
        taken = isText ? QStringLiteral("text/plain") : QStringLiteral("text/uri-list");
    const QByteArray lineEnd = toolkit == Toolkit::qt ? "\r\n" : "\n";
    QByteArray expected;
    if (isText)
        expected = kind == Kind::link ? address : (kind == Kind::text ? shortText : longText());
    else
        expected = fileAddress(kind) + lineEnd;

    const auto target = openTarget(toolkit, taken);
    QVERIFY(target);
    // A target that was served once is served again.
    for (int round = 0; round < 2; ++round) {
        QVERIFY(dragTileTo(*target));
        QVERIFY(arrives(expected));
    }
    QCOMPARE(m_shelf->savedItems().size(), 1);
}

void DragOutEndToEndTest::aLinkArrivesInEachFormatByteForByte_data()
{
    QTest::addColumn<Toolkit>("toolkit");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray lines = address + '\n' + title;
    const QByteArray anchor = "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
                              "<a href=\"http://127.0.0.1:9/%7Ea/?b=%c3%bc&amp;c=1#x\">"
                              "T\xc3\xaftle &lt;b&gt;&amp;amp;&lt;/b&gt; \xe2\x82\xac</a>";
    const std::vector<std::pair<const char*, QByteArray>> formats{
        { "text/x-moz-url", utf16(lines) },
        { "_NETSCAPE_URL", lines },
        { "text/html", anchor },
    };
    for (const auto& [format, expected] : formats)
        QTest::addRow("%s into GTK 3", format) << Toolkit::gtk3 << QString::fromLatin1(format) << expected;
    QTest::newRow("_NETSCAPE_URL into Qt") << Toolkit::qt << QStringLiteral("_NETSCAPE_URL") << lines;
    QTest::newRow("text/html into Qt") << Toolkit::qt << QStringLiteral("text/html") << anchor;
}

void DragOutEndToEndTest::aLinkArrivesInEachFormatByteForByte()
{
    QFETCH(Toolkit, toolkit);
    QFETCH(QString, format);
    QFETCH(QByteArray, expected);
    QVERIFY(putOnShelf(Kind::link));
    const auto target = openTarget(toolkit, format);
    QVERIFY(target);
    QVERIFY(dragTileTo(*target));
    QVERIFY(arrives(expected));
}

void DragOutEndToEndTest::aLinkIsAnAddressToQtPrograms()
{
    QVERIFY(putOnShelf(Kind::link));
    // Which their toolkit makes of the first format.
    const auto target = openTarget(Toolkit::qt, QStringLiteral("text/uri-list"));
    QVERIFY(target);
    QVERIFY(dragTileTo(*target));
    QVERIFY(waitFor([this] { return !received().isEmpty(); }));
    QCOMPARE(QUrl::fromEncoded(received().trimmed()), QUrl::fromEncoded(address));
}

void DragOutEndToEndTest::anImageArrivesWithItsBytes()
{
    QVERIFY(putOnShelf(Kind::image));
    const auto target = openTarget(Toolkit::gtk4, QStringLiteral("files"));
    QVERIFY(target);
    QVERIFY(dragTileTo(*target));
    QVERIFY(waitFor([this] { return !received().isEmpty(); }));
    QCOMPARE(bytesOf(QUrl::fromEncoded(received().trimmed()).toLocalFile()), png());
}

QTEST_GUILESS_MAIN(DragOutEndToEndTest)
#include "DragOutEndToEndTest.moc"
