#include "ShelfDesktop.h"
#include "Waiting.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImage>
#include <QJsonObject>
#include <QtTest>

using namespace nookle::e2e;

/// What other programs have copied is added to the shelf with the keys of a user, whatever these programs do.
class PasteEndToEndTest : public QObject, private ShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void filesArePasted();
    void aLinkIsPasted();
    void anImageIsPasted();
    void aTextIsPasted();
    void aLargeTextIsPasted();
    void aTextBelowThousandsOfFormatsIsPasted();
    void anOwnerThatNeverAnswersHoldsUpNothing();
    void anOwnerThatEndsMeanwhileHoldsUpNothing();
    void whatTheShelfCopiedItselfIsPasted();

private:
    static constexpr xcb_keysym_t down = 0xff54;

    [[nodiscard]] bool copy(const QByteArray& bytes, const QString& type)
    {
        m_desktop->writeFile(QStringLiteral("copied"), bytes);
        return openPeer({ QStringLiteral("copy"), m_desktop->home(QStringLiteral("copied")), type }).has_value();
    }
    /// Shows the shelf with the keyboard focus.
    [[nodiscard]] bool takeKeyboard()
    {
        for (const xcb_keysym_t each : { XScreen::control, XScreen::alt, XScreen::super, xcb_keysym_t{ 0xffe1 } })
            screen().pressKey(each);
        screen().pressKey('d');
        screen().releaseKey('d');
        for (const xcb_keysym_t each : { xcb_keysym_t{ 0xffe1 }, XScreen::super, XScreen::alt, XScreen::control })
            screen().releaseKey(each);
        return waitFor([this] { return m_shelf->isAtRest(1200) && screen().focus() == m_shelf->panel()->id; });
    }
    void control(xcb_keysym_t symbol)
    {
        screen().pressKey(XScreen::control);
        screen().pressKey(symbol);
        screen().releaseKey(symbol);
        screen().releaseKey(XScreen::control);
    }
    [[nodiscard]] bool paste()
    {
        if (!takeKeyboard())
            return false;
        control('v');
        return true;
    }
    /// The kinds of the saved items, from the top.
    [[nodiscard]] QStringList kinds() const
    {
        QStringList kinds;
        for (const QJsonObject& item : m_shelf->savedItems())
            kinds += item.value(QLatin1String("content")).toObject().keys();
        return kinds;
    }
    [[nodiscard]] QString topText() const
    {
        const QJsonObject content = m_shelf->savedItems().value(0).value(QLatin1String("content")).toObject();
        return content.value(QLatin1String("text")).toObject().value(QLatin1String("_0")).toString();
    }
};

void PasteEndToEndTest::init()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_PROGRAM"), "run it with ctest, which says which program is tested");
    QVERIFY(setUpDesktop({ QSize(1200, 700), QStringLiteral("openbox"), false }));
    QVERIFY(m_shelf->start());
}

void PasteEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("paste-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void PasteEndToEndTest::filesArePasted()
{
    m_desktop->writeFile(QStringLiteral("files/b"), "words");
    const QByteArray folder = QUrl::fromLocalFile(m_desktop->home(QStringLiteral("files"))).toEncoded();
    QVERIFY(copy(folder + "/note%20one.txt\r\n" + folder + "/b\r\n", QStringLiteral("text/uri-list")));
    QVERIFY(paste());
    QVERIFY(waitFor([this] {
        return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt"), QStringLiteral("b") };
    }));
}

void PasteEndToEndTest::aLinkIsPasted()
{
    QVERIFY(copy("https://example.invalid/a%20b\r\n", QStringLiteral("text/uri-list")));
    QVERIFY(paste());
    QVERIFY(waitFor([this] { return kinds() == QStringList{ QStringLiteral("link") }; }));
}

void PasteEndToEndTest::anImageIsPasted()
{
    QImage image(700, 500, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    QVERIFY(image.save(&buffer, "png"));
    QVERIFY(copy(png, QStringLiteral("image/png")));
    QVERIFY(paste());
    QVERIFY(waitFor([this] { return kinds() == QStringList{ QStringLiteral("image") }; }));
}

void PasteEndToEndTest::aTextIsPasted()
{
    QVERIFY(copy("words\xe2\x82\xac", QStringLiteral("text/plain")));
    QVERIFY(paste());
    QVERIFY(waitFor([this] { return topText() == QStringLiteral("words€"); }));
}

// It comes in pieces.
void PasteEndToEndTest::aLargeTextIsPasted()
{
    const QByteArray words = QByteArray("words ").repeated(200'000) + "end";
    QVERIFY(copy(words, QStringLiteral("text/plain")));
    QVERIFY(paste());
    QVERIFY(waitFor([&] { return topText() == QString::fromUtf8(words); }));
}

void PasteEndToEndTest::aTextBelowThousandsOfFormatsIsPasted()
{
    m_desktop->writeFile(QStringLiteral("copied"), "words");
    QVERIFY(openPeer({ QStringLiteral("copy"), m_desktop->home(QStringLiteral("copied")), QStringLiteral("text/plain"),
                       QStringLiteral("many") }));
    QVERIFY(paste());
    QVERIFY(waitFor([this] { return topText() == QStringLiteral("words"); }));
}

void PasteEndToEndTest::anOwnerThatNeverAnswersHoldsUpNothing()
{
    QVERIFY(openPeer({ QStringLiteral("copy"), QStringLiteral("silent") }));
    QVERIFY(paste());
    control('v');
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(m_shelf->startAgain({ m_desktop->home(QStringLiteral("files/note one.txt")) }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; }));
    QVERIFY2(elapsed.elapsed() < 4000, QByteArray::number(elapsed.elapsed()).constData());
    // What is copied afterwards follows.
    m_peer.reset();
    QVERIFY(copy("after it", QStringLiteral("text/plain")));
    QVERIFY(paste());
    QVERIFY(waitFor([this] { return topText() == QStringLiteral("after it"); }));
}

void PasteEndToEndTest::anOwnerThatEndsMeanwhileHoldsUpNothing()
{
    QVERIFY(openPeer({ QStringLiteral("copy"), QStringLiteral("dying") }));
    QVERIFY(paste());
    QVERIFY(waitFor([this] { return !m_peer->isRunning(); }));
    QVERIFY(copy("after it", QStringLiteral("text/plain")));
    QVERIFY(paste());
    QVERIFY(waitFor([this] { return topText() == QStringLiteral("after it"); }));
}

void PasteEndToEndTest::whatTheShelfCopiedItselfIsPasted()
{
    QCOMPARE(m_shelf->startAgain({ m_desktop->home(QStringLiteral("files/note one.txt")) }), 0);
    QVERIFY(waitFor([this] { return kinds() == QStringList{ QStringLiteral("file") }; }));
    QVERIFY(takeKeyboard());
    screen().pressKey(down);
    screen().releaseKey(down);
    control('c');
    QVERIFY(waitFor([this] { return screen().hasOwner("CLIPBOARD"); }));
    screen().pressKey(0xffff);
    screen().releaseKey(0xffff);
    QVERIFY(waitFor([this] { return kinds().isEmpty(); }));
    control('v');
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; }));
}

QTEST_GUILESS_MAIN(PasteEndToEndTest)
#include "PasteEndToEndTest.moc"
