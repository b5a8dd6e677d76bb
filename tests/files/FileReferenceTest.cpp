#include "FileReference.h"

#include "TemporaryFolder.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QRandomGenerator>
#include <QTest>

#include <cerrno>
#include <limits>

using namespace nookle;

class FileReferenceTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBytesGiveTheSameReferenceBack_data();
    void theBytesGiveTheSameReferenceBack();
    void theFirstFormIsStillRead_data() { theBytesGiveTheSameReferenceBack_data(); }
    void theFirstFormIsStillRead();
    void oneReferenceAlwaysGivesTheSameBytes();
    void bytesOfAnotherKindAreRefused_data();
    void bytesOfAnotherKindAreRefused();
    void everyMissingFieldIsNoticed();
    void everyCutIsNoticed();
    void damagedBytesAreSafe();
    void anEqualHandleIsAMatch();
    void anEqualInodeIsAMatchOnlyWithAnEqualBirthTime();
    void sizeAndModificationTimeStandInForTheBirthTime();
    void anotherKindIsNeverAMatch();
    void aFileKeepsItsIdentityUnderAnotherName();
    void theHandleIsTakenWhereThereIsOne();
    void anotherFileHasAnotherIdentity();

private:
    [[nodiscard]] static FileReference example()
    {
        return { "/home/user/file", FileIdentity{ 42, S_IFREG, 1'700'000'000'123'456'789, 1234, 99, 1, "12345678" } };
    }

    /// The first form of references.
    [[nodiscard]] static QCborMap oldForm(const FileReference& reference)
    {
        const FileIdentity& identity = reference.identity;
        return { { QStringLiteral("version"), 1 },
                 { QStringLiteral("path"), reference.path },
                 { QStringLiteral("inode"), qint64(identity.inode) },
                 { QStringLiteral("kind"), qint64(identity.kind) },
                 { QStringLiteral("birth"),
                   identity.birthTime ? QCborValue(*identity.birthTime) : QCborValue(nullptr) },
                 { QStringLiteral("size"), qint64(identity.size) },
                 { QStringLiteral("modified"), identity.modificationTime },
                 { QStringLiteral("handleType"), identity.handleType },
                 { QStringLiteral("handle"), identity.handle } };
    }
};

void FileReferenceTest::theBytesGiveTheSameReferenceBack_data()
{
    QTest::addColumn<FileReference>("reference");
    QTest::newRow("plain") << example();

    FileReference odd = example();
    odd.path = "/a\nb/%41/\xff\xfe \xc3\xbc";
    QTest::newRow("odd name") << odd;

    FileReference bare = example();
    bare.identity.birthTime.reset();
    bare.identity.handleType = 0;
    bare.identity.handle.clear();
    QTest::newRow("no birth time, no handle") << bare;

    FileReference extreme = example();
    extreme.identity.inode = std::numeric_limits<quint64>::max();
    extreme.identity.size = std::numeric_limits<quint64>::max();
    extreme.identity.birthTime = std::numeric_limits<qint64>::min();
    extreme.identity.modificationTime = std::numeric_limits<qint64>::max();
    extreme.identity.handleType = std::numeric_limits<int>::min();
    extreme.identity.handle = QByteArray(128, '\0');
    QTest::newRow("extreme numbers") << extreme;
}

void FileReferenceTest::theBytesGiveTheSameReferenceBack()
{
    QFETCH(FileReference, reference);
    const auto decoded = FileReference::decode(reference.encode());
    QVERIFY(decoded);
    QVERIFY(*decoded == reference);
}

void FileReferenceTest::theFirstFormIsStillRead()
{
    QFETCH(FileReference, reference);
    const auto decoded = FileReference::decode(oldForm(reference).toCborValue().toCbor());
    QVERIFY(decoded);
    QVERIFY(*decoded == reference);
}

void FileReferenceTest::oneReferenceAlwaysGivesTheSameBytes()
{
    QCOMPARE(example().encode(), example().encode());
    FileReference other = example();
    other.identity.inode = 43;
    QVERIFY(other.encode() != example().encode());
}

void FileReferenceTest::bytesOfAnotherKindAreRefused_data()
{
    const auto with = [](const char* key, const QCborValue& value) {
        QCborMap map = oldForm(example());
        map[QLatin1String(key)] = value;
        return QCborValue(map).toCbor();
    };
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("/home/user/file");
    QTest::newRow("zeros") << QByteArray(100, '\0');
    QTest::newRow("a number") << QCborValue(1).toCbor();
    QTest::newRow("a list") << QCborValue(QCborArray{ 1, 2 }).toCbor();
    QTest::newRow("an empty map") << QCborValue(QCborMap()).toCbor();
    FileReference relative = example();
    relative.path = "file";
    FileReference withNul = example();
    withNul.path = QByteArray("/a\0b", 4);
    FileReference withMoreBits = example();
    withMoreBits.identity.kind = 0100644;
    QTest::newRow("record of a relative path") << relative.encode();
    QTest::newRow("record of a path with NUL") << withNul.encode();
    QTest::newRow("record of a kind with more bits") << withMoreBits.encode();
    QTest::newRow("record of another version") << QByteArray("NKR3" + example().encode().mid(4));
    QTest::newRow("more after it") << QByteArray(example().encode() + '\0');
    QTest::newRow("more after the first form") << QByteArray(oldForm(example()).toCborValue().toCbor() + '\0');
    QTest::newRow("very long") << QByteArray(example().encode() + QByteArray(1 << 20, '\0'));
    QTest::newRow("nested deeply") << QByteArray(60'000, char(0x81));
    QTest::newRow("endless lists") << QByteArray(60'000, char(0x9f));
    QTest::newRow("huge byte string") << QByteArray::fromHex("5b7fffffffffffffff00");
    QTest::newRow("huge text") << QByteArray::fromHex("7b7fffffffffffffff00");
    QTest::newRow("huge list") << QByteArray::fromHex("9b7fffffffffffffff00");
    QTest::newRow("huge map") << QByteArray::fromHex("bb7fffffffffffffff00");
    QTest::newRow("another version") << with("version", 2);
    QTest::newRow("version as text") << with("version", QStringLiteral("1"));
    QTest::newRow("relative path") << with("path", QByteArray("file"));
    QTest::newRow("path with NUL") << with("path", QByteArray("/a\0b", 4));
    QTest::newRow("path as text") << with("path", QStringLiteral("/a"));
    QTest::newRow("fraction") << with("inode", 1.5);
    QTest::newRow("kind with more bits") << with("kind", 0100644);
    QTest::newRow("negative kind") << with("kind", -1);
    QTest::newRow("large handle type") << with("handleType", qint64(1) << 40);
    QTest::newRow("birth time as text") << with("birth", QStringLiteral("1"));
}

void FileReferenceTest::bytesOfAnotherKindAreRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!FileReference::decode(bytes));
}

void FileReferenceTest::everyMissingFieldIsNoticed()
{
    const QCborMap whole = oldForm(example());
    for (const QCborValue& key : whole.keys()) {
        QCborMap map = whole;
        map.remove(key);
        QVERIFY2(!FileReference::decode(QCborValue(map).toCbor()), qPrintable(key.toString()));
    }
}

void FileReferenceTest::everyCutIsNoticed()
{
    for (const QByteArray& whole : { example().encode(), oldForm(example()).toCborValue().toCbor() }) {
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY2(!FileReference::decode(whole.left(length)), qPrintable(QString::number(length)));
    }
}

void FileReferenceTest::damagedBytesAreSafe()
{
    QRandomGenerator random(20240229);
    for (const QByteArray& whole : { example().encode(), oldForm(example()).toCborValue().toCbor() }) {
        for (int round = 0; round < 10'000; ++round) {
            QByteArray damaged = whole;
            for (int change = random.bounded(1, 6); change > 0; --change)
                damaged[random.bounded(damaged.size())] = char(random.bounded(256));
            const auto decoded = FileReference::decode(damaged);
            if (decoded) {
                QVERIFY(decoded->path.startsWith('/'));
                QVERIFY(FileReference::decode(decoded->encode()) == decoded);
            }
        }
    }
}

void FileReferenceTest::anEqualHandleIsAMatch()
{
    const FileIdentity one = example().identity;
    FileIdentity other{ 43, one.kind, 1, 2, 3, one.handleType, one.handle };
    QVERIFY(one.matches(other));
    other.handleType = 2;
    QVERIFY(!one.matches(other));
    other = { 43, one.kind, 1, 2, 3, one.handleType, "87654321" };
    QVERIFY(!one.matches(other));
}

void FileReferenceTest::anEqualInodeIsAMatchOnlyWithAnEqualBirthTime()
{
    const FileIdentity one{ 42, S_IFREG, 1000, 10, 20, 0, {} };
    QVERIFY(one.matches({ 42, S_IFREG, 1000, 11, 21, 0, {} }));
    QVERIFY(!one.matches({ 43, S_IFREG, 1000, 10, 20, 0, {} }));
    QVERIFY(!one.matches({ 42, S_IFREG, 1001, 10, 20, 0, {} }));
    QVERIFY(!one.matches({ 42, S_IFREG, std::nullopt, 10, 20, 0, {} }));
}

void FileReferenceTest::sizeAndModificationTimeStandInForTheBirthTime()
{
    const FileIdentity one{ 42, S_IFREG, std::nullopt, 10, 20, 0, {} };
    QVERIFY(one.matches({ 42, S_IFREG, std::nullopt, 10, 20, 0, {} }));
    QVERIFY(!one.matches({ 43, S_IFREG, std::nullopt, 10, 20, 0, {} }));
    QVERIFY(!one.matches({ 42, S_IFREG, std::nullopt, 11, 20, 0, {} }));
    QVERIFY(!one.matches({ 42, S_IFREG, std::nullopt, 10, 21, 0, {} }));
    QVERIFY(!one.matches({ 42, S_IFREG, 1000, 10, 20, 0, {} }));
}

void FileReferenceTest::anotherKindIsNeverAMatch()
{
    FileIdentity other = example().identity;
    other.kind = S_IFDIR;
    QVERIFY(!other.matches(example().identity));
}

void FileReferenceTest::aFileKeepsItsIdentityUnderAnotherName()
{
    const TemporaryFolder folder;
    const auto before = FileIdentity::of(folder.makeFile("one"));
    QVERIFY(before);
    folder.makeFile("one", "a longer content");
    folder.makeFolder("below");
    moveFile(folder.path("one"), folder.path("below/two"));
    const auto after = FileIdentity::of(folder.path("below/two"));
    QVERIFY(after);
    QVERIFY(after->matches(*before));
    QVERIFY(after->size != before->size);
    QVERIFY(!FileIdentity::of(folder.path("one")));
}

void FileReferenceTest::theHandleIsTakenWhereThereIsOne()
{
    const TemporaryFolder folder;
    const QByteArray path = folder.makeFile("file");
    file_handle empty{};
    int mountId = 0;
    // With no room for it, a handle that exists does not fit.
    const bool hasHandles =
        ::name_to_handle_at(AT_FDCWD, path.constData(), &empty, &mountId, 0) != 0 && errno == EOVERFLOW;
    const auto identity = FileIdentity::of(path);
    QVERIFY(identity);
    QCOMPARE(!identity->handle.isEmpty(), hasHandles);
}

void FileReferenceTest::anotherFileHasAnotherIdentity()
{
    const TemporaryFolder folder;
    const auto one = FileIdentity::of(folder.makeFile("one"));
    const auto two = FileIdentity::of(folder.makeFile("two"));
    makeLink("one", folder.path("link"));
    const auto link = FileIdentity::of(folder.path("link"));
    QVERIFY(one && two && link);
    QVERIFY(!one->matches(*two));
    QVERIFY(!link->matches(*one));
}

QTEST_GUILESS_MAIN(FileReferenceTest)
#include "FileReferenceTest.moc"
