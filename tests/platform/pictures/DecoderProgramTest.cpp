#include "DecoderProgram.h"

#include "TemporaryFolder.h"

#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace nookle;

class DecoderProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void decoderBesideTheProgramIsTaken();
    void installedDecoderIsTaken();
    void missingDecoderHasAPlaceToBeMissedAt();

private:
    static QByteArray makeProgram(const TemporaryFolder& folder, const QByteArray& name)
    {
        QByteArray path = folder.makeFile(name);
        ::chmod(path.constData(), 0700);
        return path;
    }
    [[nodiscard]] static QByteArray found(const TemporaryFolder& folder)
    {
        return QFile::encodeName(decoderProgram(QFile::decodeName(folder.path("bin"))));
    }
};

void DecoderProgramTest::decoderBesideTheProgramIsTaken()
{
    const TemporaryFolder folder;
    folder.makeFolder("bin");
    folder.makeFolder("libexec/nookle");
    makeProgram(folder, "libexec/nookle/nookle-decode");
    QCOMPARE(found(folder), folder.path("libexec/nookle/nookle-decode"));
    const QByteArray beside = makeProgram(folder, "bin/nookle-decode");
    QCOMPARE(found(folder), beside);
}

void DecoderProgramTest::installedDecoderIsTaken()
{
    const TemporaryFolder folder;
    folder.makeFolder("bin");
    folder.makeFolder("libexec/nookle");
    const QByteArray installed = makeProgram(folder, "libexec/nookle/nookle-decode");
    folder.makeFile("bin/nookle-decode", "no program");
    QCOMPARE(found(folder), installed);
}

void DecoderProgramTest::missingDecoderHasAPlaceToBeMissedAt()
{
    const TemporaryFolder folder;
    QCOMPARE(found(folder), folder.path("bin/nookle-decode"));
}

QTEST_GUILESS_MAIN(DecoderProgramTest)
#include "DecoderProgramTest.moc"
