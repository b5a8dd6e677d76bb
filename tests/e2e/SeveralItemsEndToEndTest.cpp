#include "Browser.h"
#include "SeveralItemsDesktop.h"
#include "Waiting.h"
#include "WebServer.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace nookle::e2e;

namespace {

inline constexpr QPoint uploadPlace(120, 100);

/// Reports the names and the contents of the files that it gets.
[[nodiscard]] QByteArray uploadPage()
{
    return "<!doctype html><meta charset=utf-8><title>Upload</title><body><div style='" + Browser::marker()
        + "'></div><input type=file multiple "
          "style='position:absolute;left:40px;top:60px;width:300px;height:80px;background:#eee' "
          "onchange=\"Promise.all([...this.files].map(async f=>f.name+'='+await f.text()))"
          ".then(all=>fetch('/uploaded',{method:'POST',body:all.join('|')}))\">";
}

} // namespace

class SeveralItemsEndToEndTest : public QObject, private SeveralItemsDesktop {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { tearDownDesktop(); }

    void fiveFilesFromThreeFoldersGoIntoOneFolderInOneDrag();
    void fiveFilesGoIntoAnUploadFieldInOneDrag();
    void fiveFilesAreAListForPrograms_data();
    void fiveFilesAreAListForPrograms();
    void aSelectionOfTwoTilesTakesThoseTwo();
    void aMixedSelectionIsFilesForSomeAndTextForOthers_data();
    void aMixedSelectionIsFilesForSomeAndTextForOthers();
    void textsGoIntoAnEditorWithABlankLineBetween();
    void filesThatAreDroppedOnTheTrashLeaveTheShelf();

private:
    [[nodiscard]] std::optional<XWindow> openGtkTarget(const QString& version, const QString& taken);
    [[nodiscard]] bool arrives(const QByteArray& expected);

    WebServer m_server;
};

void SeveralItemsEndToEndTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_GTK_TARGET"), "run it with ctest, which says where the programs are");
    QVERIFY(setUpDesktop({ QSize(1280, 800), QStringLiteral("openbox"), false }));
    // Drawn by the processor: the servers of the tests have nothing else.
    m_desktop->setVariable(QStringLiteral("GSK_RENDERER"), QStringLiteral("cairo"));
    m_desktop->setVariable(QStringLiteral("GDK_BACKEND"), QStringLiteral("x11"));
    QVERIFY(m_server.isRunning());
    m_server.serve(QStringLiteral("/"), "text/html", uploadPage());
    m_server.serve(QStringLiteral("/uploaded"), "text/plain", "thanks");
}

void SeveralItemsEndToEndTest::init()
{
    for (const char* file : { "received", "received.over" })
        QFile::remove(home(QLatin1String(file)));
    QVERIFY(startShelf());
}

void SeveralItemsEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("several-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    m_peer.reset();
    m_files.reset();
    QVERIFY(m_shelf->stop());
}

std::optional<XWindow> SeveralItemsEndToEndTest::openGtkTarget(const QString& version, const QString& taken)
{
    return openPeer({ version, taken, home(QStringLiteral("received")) }, qEnvironmentVariable("NOOKLE_GTK_TARGET"));
}

bool SeveralItemsEndToEndTest::arrives(const QByteArray& expected)
{
    const bool isThere = waitFor([this] { return QFile::exists(home(QStringLiteral("received"))); });
    if (isThere && received() == expected)
        return true;
    qInfo("arrived: %s", received().left(2000).constData());
    return false;
}

void SeveralItemsEndToEndTest::fiveFilesFromThreeFoldersGoIntoOneFolderInOneDrag()
{
    QVERIFY(putFilesOnShelf());
    m_desktop->writeFile(QStringLiteral("target/other.txt"), "other");
    m_files = FileManager::tryOpen(*m_desktop, home(QStringLiteral("target")));
    QVERIFY(m_files);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), m_files->emptyPlace()));
    for (const TestFile& file : files()) {
        const QString arrived = QStringLiteral("target/") + QString::fromUtf8(file.name);
        QVERIFY2(waitFor([&] { return bytesOf(arrived) == file.content; }), file.name);
    }
    QCOMPARE(QDir(home(QStringLiteral("target"))).count(), 6U + 2U);
    QCOMPARE(m_shelf->savedItems().size(), 5);
}

void SeveralItemsEndToEndTest::fiveFilesGoIntoAnUploadFieldInOneDrag()
{
    QVERIFY(putFilesOnShelf());
    const auto browser = Browser::tryOpen(*m_desktop, m_server.url(QStringLiteral("/")));
    QVERIFY(browser);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), browser->at(uploadPlace)));
    QByteArrayList expected;
    for (const TestFile& file : files())
        expected.append(QByteArray(file.name) + '=' + QString::fromUtf8(file.content).toUtf8());
    QVERIFY(waitFor([&] { return m_server.posted(QStringLiteral("/uploaded")) == expected.join('|'); }));
}

void SeveralItemsEndToEndTest::fiveFilesAreAListForPrograms_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("taken");
    for (const char* version : { "3", "4" }) {
        for (const char* taken : { "files", "text" })
            QTest::addRow("%s into GTK %s", taken, version)
                << QString::fromLatin1(version) << QString::fromLatin1(taken);
    }
}

void SeveralItemsEndToEndTest::fiveFilesAreAListForPrograms()
{
    QFETCH(const QString, version);
    QFETCH(const QString, taken);
    QVERIFY(putFilesOnShelf());
    const auto target = openGtkTarget(version, taken);
    QVERIFY(target);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), target->frame.center()));
    QByteArrayList expected;
    for (const TestFile& file : files())
        expected.append(addressOf(file));
    QVERIFY(arrives(taken == QStringLiteral("files") ? expected.join('\n') + '\n' : expected.join('\n')));
}

void SeveralItemsEndToEndTest::aSelectionOfTwoTilesTakesThoseTwo()
{
    QVERIFY(putFilesOnShelf());
    const auto target = openGtkTarget(QStringLiteral("3"), QStringLiteral("files"));
    QVERIFY(target);
    QVERIFY(showShelf());
    clickWithControl(tile(3));
    clickWithControl(tile(1));
    QVERIFY(dragTo(tile(3), target->frame.center()));
    QVERIFY(arrives(addressOf(files()[1]) + '\n' + addressOf(files()[3]) + '\n'));
}

void SeveralItemsEndToEndTest::aMixedSelectionIsFilesForSomeAndTextForOthers_data()
{
    QTest::addColumn<QString>("taken");
    QTest::newRow("files") << QStringLiteral("files");
    QTest::newRow("text") << QStringLiteral("text");
}

void SeveralItemsEndToEndTest::aMixedSelectionIsFilesForSomeAndTextForOthers()
{
    QFETCH(const QString, taken);
    QVERIFY(putFilesOnShelf());
    QVERIFY(putTextOnShelf("some words"));
    const auto target = openGtkTarget(QStringLiteral("3"), taken);
    QVERIFY(target);
    QVERIFY(showShelf());
    clickWithControl(tile(0));
    clickWithControl(tile(2));
    clickWithControl(tile(1));
    QVERIFY(dragTo(tile(0), target->frame.center()));
    const QByteArray first = addressOf(files()[0]);
    const QByteArray second = addressOf(files()[1]);
    const QByteArray asFiles = first + '\n' + second + '\n';
    const QByteArray asText = "some words\n\n" + first + "\n\n" + second;
    QVERIFY(arrives(taken == QStringLiteral("files") ? asFiles : asText));
}

void SeveralItemsEndToEndTest::textsGoIntoAnEditorWithABlankLineBetween()
{
    QVERIFY(putTextOnShelf("last"));
    QVERIFY(putTextOnShelf("two\nlines"));
    QVERIFY(putTextOnShelf("first \xe2\x82\xac"));
    const auto target = openGtkTarget(QStringLiteral("4"), QStringLiteral("text"));
    QVERIFY(target);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), target->frame.center()));
    QVERIFY(arrives("first \xe2\x82\xac\n\ntwo\nlines\n\nlast"));
}

void SeveralItemsEndToEndTest::filesThatAreDroppedOnTheTrashLeaveTheShelf()
{
    QVERIFY(putFilesOnShelf());
    const auto window = openPeer({ QStringLiteral("trash") });
    QVERIFY(window);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), window->frame.center()));
    QVERIFY(waitFor([this] { return m_shelf->savedItems().isEmpty(); }));
    for (const TestFile& file : files())
        QVERIFY(QFile::exists(home(QStringLiteral("data/Trash/files/") + QString::fromUtf8(file.name))));
}

QTEST_GUILESS_MAIN(SeveralItemsEndToEndTest)
#include "SeveralItemsEndToEndTest.moc"
