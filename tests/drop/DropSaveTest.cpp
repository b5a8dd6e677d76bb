#include "DropSave.h"

#include "DropCapture.h"
#include "FakeDropPayload.h"
#include "FileUrl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class DropSaveTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theSourceSavesIntoAFolderOfItsOwn();
    void aFolderThatIsThereIsLeftAlone();
    void aSourceThatRefusesLeavesNoFolder();
    void aSourceThatDoesNotAnswerInTimeMayStillSave();
    void aSourceThatCannotSaveIsNotAsked();
    void aNameMustNotLeadOutOfTheFolder_data();
    void aNameMustNotLeadOutOfTheFolder();
    void aNameThatIsTooLongIsCut();
    void whatElseIsOfferedComesFirst();
    void aDragThatCanOnlyBeSavedIsTaken();
    void aDragWithoutANameForItsFileIsRefused();
    void textComesAfterTheFile();

private:
    [[nodiscard]] QString downloads() const { return m_home->filePath(QStringLiteral("Downloads")); }
    [[nodiscard]] QStringList inDownloads() const
    {
        return QDir(downloads()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }

    [[nodiscard]] static FakeDropPayload archive(const QByteArray& name)
    {
        FakeDropPayload payload;
        payload.offer("XdndDirectSave0", "S");
        payload.name = name;
        payload.offersSaving = true;
        return payload;
    }

    std::unique_ptr<QTemporaryDir> m_home;
};

void DropSaveTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(m_home->path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_home->path()));
}

void DropSaveTest::cleanup()
{
    m_home.reset();
}

void DropSaveTest::theSourceSavesIntoAFolderOfItsOwn()
{
    const FakeDropPayload payload = archive("report.pdf");
    const auto folder = saveDrop(payload);
    QVERIFY(folder);
    QCOMPARE(filePath(*folder), QFile::encodeName(downloads() + QStringLiteral("/report")));
    QCOMPARE(payload.savedTo, QList<QByteArray>{ filePath(*folder) + "/report.pdf" });
    QCOMPARE(inDownloads(), QStringList{ QStringLiteral("report") });
}

void DropSaveTest::aFolderThatIsThereIsLeftAlone()
{
    QVERIFY(QDir().mkpath(downloads() + QStringLiteral("/report")));
    const auto folder = saveDrop(archive("report.pdf"));
    QVERIFY(folder);
    QCOMPARE(lastPathComponent(*folder), QStringLiteral("report (2)"));
}

void DropSaveTest::aSourceThatRefusesLeavesNoFolder()
{
    FakeDropPayload payload = archive("report.pdf");
    payload.saveAnswer = SaveAnswer::refused;
    QVERIFY(!saveDrop(payload));
    QVERIFY(inDownloads().isEmpty());
}

void DropSaveTest::aSourceThatDoesNotAnswerInTimeMayStillSave()
{
    FakeDropPayload payload = archive("report.pdf");
    payload.saveAnswer = SaveAnswer::none;
    const auto folder = captureDrop(payload).savedInto;
    QVERIFY(folder);
    QCOMPARE(filePath(*folder), QFile::encodeName(downloads() + QStringLiteral("/report")));
    QCOMPARE(inDownloads(), QStringList{ QStringLiteral("report") });
}

void DropSaveTest::aSourceThatCannotSaveIsNotAsked()
{
    FakeDropPayload payload = archive("report.pdf");
    payload.offersSaving = false;
    QVERIFY(!saveDrop(payload));
    QVERIFY(payload.savedTo.isEmpty());
    QVERIFY(inDownloads().isEmpty());
}

void DropSaveTest::aNameMustNotLeadOutOfTheFolder_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("saved");
    QTest::newRow("folders") << QByteArray("a/b/c.txt") << QStringLiteral("c/c.txt");
    QTest::newRow("above") << QByteArray("../../c.txt") << QStringLiteral("c/c.txt");
    QTest::newRow("NUL") << QByteArray("c.txt\0/../d", 12) << QStringLiteral("c/c.txt");
    QTest::newRow("no UTF-8") << QByteArray("\xff\xfe.zip") << QStringLiteral("ÿþ/ÿþ.zip");
    QTest::newRow("hidden") << QByteArray(".bashrc") << QStringLiteral("bashrc/.bashrc");
    QTest::newRow("hidden with dots") << QByteArray("..a.tar.gz") << QStringLiteral("a.tar/..a.tar.gz");
    QTest::newRow("controls") << QByteArray("a\nb\x1b[31m.txt") << QStringLiteral("a b[31m/a b[31m.txt");
    QTest::newRow("a turned direction") << QByteArray("a\u202egpj.exe") << QStringLiteral("agpj/agpj.exe");
    QTest::newRow("nothing but controls and dots") << QByteArray("\u202e.\x01.") << QString();
    for (const char* name : { "", ".", "..", "...", "/", "a/..", " ", ". " })
        QTest::newRow(name) << QByteArray(name) << QString();
}

void DropSaveTest::aNameMustNotLeadOutOfTheFolder()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, saved);
    const FakeDropPayload payload = archive(name);
    QCOMPARE(offersDropItems(payload), !saved.isEmpty());
    QCOMPARE(saveDrop(payload).has_value(), !saved.isEmpty());
    const QList<QByteArray> expected = saved.isEmpty()
        ? QList<QByteArray>()
        : QList<QByteArray>{ QFile::encodeName(QString(downloads() + QLatin1Char('/') + saved)) };
    QCOMPARE(payload.savedTo, expected);
}

void DropSaveTest::aNameThatIsTooLongIsCut()
{
    const FakeDropPayload payload = archive(QByteArray(4000, 'x'));
    QVERIFY(saveDrop(payload));
    QVERIFY(QDir(downloads()).exists(inDownloads().constFirst()));
}

void DropSaveTest::whatElseIsOfferedComesFirst()
{
    FakeDropPayload payload = archive("page.html");
    payload.offer("text/uri-list", "https://example.com/");
    const CapturedDrop drop = captureDrop(payload);
    QVERIFY(!drop.savedInto);
    QCOMPARE(drop.items.size(), std::size_t{ 1 });
    QVERIFY(payload.savedTo.isEmpty());
}

void DropSaveTest::aDragThatCanOnlyBeSavedIsTaken()
{
    FakeDropPayload payload = archive("report.pdf");
    QVERIFY(offersDropItems(payload));
    const CapturedDrop drop = captureDrop(payload);
    QVERIFY(drop.savedInto);
    QVERIFY(drop.items.empty());
    payload.offersSaving = false;
    QVERIFY(!offersDropItems(payload));
}

void DropSaveTest::aDragWithoutANameForItsFileIsRefused()
{
    FakeDropPayload payload = archive("..");
    QVERIFY(!offersDropItems(payload));
    payload.offer("text/plain", "words");
    QVERIFY(offersDropItems(payload));
    QCOMPARE(captureDrop(payload).items.at(0).text, QStringLiteral("words"));
}

void DropSaveTest::textComesAfterTheFile()
{
    FakeDropPayload payload = archive("report.pdf");
    payload.offer("text/plain", "report.pdf");
    QVERIFY(captureDrop(payload).savedInto);
    payload.saveAnswer = SaveAnswer::refused;
    QCOMPARE(captureDrop(payload).items.at(0).text, QStringLiteral("report.pdf"));
}

QTEST_GUILESS_MAIN(DropSaveTest)
#include "DropSaveTest.moc"
