#include "ImageCopy.h"

#include "CapturedLog.h"
#include "FileUrl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class ImageCopyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aCopyIsNamedByWhatTheSourceSuggests_data();
    void aCopyIsNamedByWhatTheSourceSuggests();
    void aLongNameIsCutAndKeepsItsExtension();
    void theCopyHoldsTheBytesInAFolderOfItsOwn();
    void twoCopiesOfTheSameNameDoNotMeet();
    void theFolderIsTheUsersAlone();
    void nameThatLooksLikeAWayOutStaysInTheFolder_data();
    void nameThatLooksLikeAWayOutStaysInTheFolder();
    void aFailureIsLoggedAndLeavesNoFolder();

private:
    std::unique_ptr<QTemporaryDir> m_temporary;
};

void ImageCopyTest::init()
{
    qunsetenv("TMPDIR");
    m_temporary = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", m_temporary->path().toUtf8());
}

void ImageCopyTest::aCopyIsNamedByWhatTheSourceSuggests_data()
{
    QTest::addColumn<QString>("suggested");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* title, const char* suggested, const char* type, const char* name) {
        QTest::newRow(title) << QString::fromUtf8(suggested) << QString::fromLatin1(type) << QString::fromUtf8(name);
    };
    row("no name", "", "image/png", "Image.png");
    row("a name without an extension", "Photo", "image/tiff", "Photo.tif");
    row("a slash", "one/two", "image/png", "one-two.png");
    row("an extension of another type", "Photo.jpg", "image/png", "Photo.jpg");
    row("a type without an extension", "Photo", "image/x-of-nobody", "Photo");
    row("a dot that begins no extension", "Mr. Smith", "image/png", "Mr. Smith.png");
    row("an entry of the desktop", "holiday.desktop", "image/png", "holiday.desktop.png");
    row("an entry behind an image", "x.png.desktop", "image/png", "x.png.desktop.png");
    row("an entry in capitals", "holiday.DESKTOP", "image/png", "holiday.DESKTOP.png");
    row("an entry of no name", ".desktop", "image/png", ".desktop.png");
    row("a dot behind an entry", "holiday.desktop.", "image/png", "holiday.desktop..png");
    row("a space behind an entry", "holiday.desktop ", "image/png", "holiday.desktop .png");
    row("a script", "a.sh", "image/jpeg", "a.sh.jpg");
    row("a page", "foo.html", "image/gif", "foo.html.gif");
    row("an extension of nobody", "foo.of-nobody", "image/png", "foo.of-nobody.png");
    row("an entry of a type without an extension", "x.desktop", "image/x-of-nobody", "x-desktop");
    row("an extension in capitals", "PHOTO.JPG", "image/png", "PHOTO.JPG");
    row("the folder above", "..", "image/png", "Image.png");
    row("the folder itself", ".", "image/x-of-nobody", "Image");
    row("a hidden file", ".png", "image/png", ".png.png");
    row("a newline", "two\nlines", "image/png", "two lines.png");
    row("a right-to-left mark", "a\xe2\x80\xaegnp", "image/png", "agnp.png");
    row("nothing but such a mark", "\xe2\x80\xae", "image/png", "Image.png");
    row("a bell", "a\ab", "image/png", "ab.png");
}

void ImageCopyTest::aCopyIsNamedByWhatTheSourceSuggests()
{
    QFETCH(QString, suggested);
    QFETCH(QString, type);
    QTEST(imageFileName({ "bytes", type, suggested }), "name");
}

void ImageCopyTest::aLongNameIsCutAndKeepsItsExtension()
{
    for (const QString& letter : { QStringLiteral("a"), QStringLiteral("ü"), QStringLiteral("\U0001F600") }) {
        const DroppedImage image{ "bytes", QStringLiteral("image/png"),
                                  letter.repeated(300) + QStringLiteral(".jpeg") };
        const QString name = imageFileName(image);
        QVERIFY(name.endsWith(letter + QStringLiteral(".jpeg")));
        QVERIFY(name.toUtf8().size() > 230);
        QVERIFY(writeImageCopy(image));
    }
}

void ImageCopyTest::theCopyHoldsTheBytesInAFolderOfItsOwn()
{
    const auto copy = writeImageCopy({ "the bytes", QStringLiteral("image/png"), QStringLiteral("Photo") });
    QVERIFY(copy);
    QFile file(copy->toLocalFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("the bytes"));
    const QRegularExpression place(QStringLiteral("^%1/Nookle-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}/Photo\\.png$")
                                       .arg(QRegularExpression::escape(m_temporary->path())));
    QVERIFY2(place.match(file.fileName()).hasMatch(), qPrintable(file.fileName()));
    QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
}

void ImageCopyTest::twoCopiesOfTheSameNameDoNotMeet()
{
    const DroppedImage image{ "bytes", QStringLiteral("image/png"), QString() };
    const auto first = writeImageCopy(image);
    const auto second = writeImageCopy(image);
    QVERIFY(first && second && *first != *second);
    QVERIFY(QFile::exists(first->toLocalFile()) && QFile::exists(second->toLocalFile()));
}

void ImageCopyTest::theFolderIsTheUsersAlone()
{
    const auto copy = writeImageCopy({ "bytes", QStringLiteral("image/png"), QString() });
    const QFileInfo folder(QFileInfo(copy->toLocalFile()).path());
    QCOMPARE(folder.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther), QFile::Permissions());
}

void ImageCopyTest::nameThatLooksLikeAWayOutStaysInTheFolder_data()
{
    QTest::addColumn<QString>("suggested");
    QTest::newRow("the folder above") << QStringLiteral("../../escaped.png");
    QTest::newRow("two dots") << QStringLiteral("..");
    QTest::newRow("an absolute path") << QStringLiteral("/etc/passwd");
    QTest::newRow("a NUL") << QStringLiteral("..") + QChar(u'\0') + QStringLiteral(".png");
    QTest::newRow("only a NUL") << QString(QChar(u'\0'));
    QTest::newRow("an encoded slash") << QStringLiteral("..%2Fescaped.png");
}

void ImageCopyTest::nameThatLooksLikeAWayOutStaysInTheFolder()
{
    QFETCH(QString, suggested);
    // Of no known type, so that no extension is added.
    const auto copy = writeImageCopy({ "bytes", QStringLiteral("image/x-of-nobody"), suggested });
    QDir above(m_temporary->path());
    const QStringList folders = above.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    QVERIFY(copy);
    QCOMPARE(folders.size(), 1);
    QVERIFY(above.cd(folders.first()));
    QCOMPARE(above.entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void ImageCopyTest::aFailureIsLoggedAndLeavesNoFolder()
{
    CapturedLog log;
    qputenv("TMPDIR", "/proc/of/nobody");
    QVERIFY(!writeImageCopy({ "bytes", QStringLiteral("image/png"), QString() }));
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().first().startsWith(QStringLiteral("Nookle: could not read image: ")));
}

QTEST_GUILESS_MAIN(ImageCopyTest)
#include "ImageCopyTest.moc"
