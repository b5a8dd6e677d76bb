#include "LeftImageCopies.h"

#include "ImageCopy.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/stat.h>

using namespace nookle;

class LeftImageCopiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aCopyGoesAfterItsTime();
    void whatIsNoCopyStays_data();
    void whatIsNoCopyStays();

private:
    /// Makes a folder with a file in the temporary folder; returns the path of the file.
    [[nodiscard]] QString makeFolder(const QString& name, mode_t permissions = 0700) const;
    static void removeAllCopies() { removeLeftImageCopies(QDateTime::currentDateTimeUtc().addDays(1)); }

    std::unique_ptr<QTemporaryDir> m_temporary;
};

namespace {

QString usualName()
{
    return QStringLiteral("Nookle-1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB");
}

} // namespace

void LeftImageCopiesTest::init()
{
    qunsetenv("TMPDIR");
    m_temporary = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", QFile::encodeName(m_temporary->path()));
}

QString LeftImageCopiesTest::makeFolder(const QString& name, mode_t permissions) const
{
    const QString folder = m_temporary->filePath(name);
    QFile file(folder + QStringLiteral("/Photo.png"));
    if (!QDir().mkpath(folder) || ::chmod(QFile::encodeName(folder).constData(), permissions) != 0
        || !file.open(QIODevice::WriteOnly))
        qFatal("cannot make %s", qPrintable(folder));
    return file.fileName();
}

void LeftImageCopiesTest::aCopyGoesAfterItsTime()
{
    const auto copy = writeImageCopy({ "pixels", QStringLiteral("image/png"), QStringLiteral("Photo") });
    QVERIFY(copy);
    removeLeftImageCopies(QDateTime::currentDateTimeUtc().addSecs(-60));
    QVERIFY(QFile::exists(copy->toLocalFile()));
    removeAllCopies();
    QVERIFY(QDir(m_temporary->path()).isEmpty());
}

void LeftImageCopiesTest::whatIsNoCopyStays_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<uint>("permissions");
    QTest::newRow("no identity") << QStringLiteral("Nookle-1") << 0700U;
    QTest::newRow("small letters") << usualName().toLower() << 0700U;
    QTest::newRow("more than an identity") << QString(usualName() + QStringLiteral("-old")) << 0700U;
    QTest::newRow("others may read it") << usualName() << 0755U;
}

void LeftImageCopiesTest::whatIsNoCopyStays()
{
    QFETCH(QString, name);
    QFETCH(uint, permissions);
    const QString file = makeFolder(name, permissions);
    removeAllCopies();
    QVERIFY(QFile::exists(file));
}

QTEST_GUILESS_MAIN(LeftImageCopiesTest)
#include "LeftImageCopiesTest.moc"
