#include "HelperProgram.h"

#include "TemporaryFolder.h"

#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace nookle;

class HelperProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void helperBesideTheProgramIsTaken();
    void installedHelperIsTaken();
    void missingHelperHasAPlaceToBeMissedAt();

private:
    static QByteArray makeProgram(const TemporaryFolder& folder, const QByteArray& name)
    {
        QByteArray path = folder.makeFile(name);
        ::chmod(path.constData(), 0700);
        return path;
    }
    [[nodiscard]] static QByteArray found(const TemporaryFolder& folder)
    {
        return QFile::encodeName(helperProgram(QFile::decodeName(folder.path("bin")), QStringLiteral("nookle-decode")));
    }
};

void HelperProgramTest::helperBesideTheProgramIsTaken()
{
    const TemporaryFolder folder;
    folder.makeFolder("bin");
    folder.makeFolder("libexec/nookle");
    makeProgram(folder, "libexec/nookle/nookle-decode");
    QCOMPARE(found(folder), folder.path("libexec/nookle/nookle-decode"));
    const QByteArray beside = makeProgram(folder, "bin/nookle-decode");
    QCOMPARE(found(folder), beside);
}

void HelperProgramTest::installedHelperIsTaken()
{
    const TemporaryFolder folder;
    folder.makeFolder("bin");
    folder.makeFolder("libexec/nookle");
    const QByteArray installed = makeProgram(folder, "libexec/nookle/nookle-decode");
    folder.makeFile("bin/nookle-decode", "no program");
    QCOMPARE(found(folder), installed);
}

void HelperProgramTest::missingHelperHasAPlaceToBeMissedAt()
{
    const TemporaryFolder folder;
    QCOMPARE(found(folder), folder.path("bin/nookle-decode"));
}

QTEST_GUILESS_MAIN(HelperProgramTest)
#include "HelperProgramTest.moc"
