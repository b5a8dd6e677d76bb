#include "Favicon.h"

#include "FileUrl.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class FaviconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSavedIconIsShown();
    void whatIsNoIconIsNone_data();
    void whatIsNoIconIsNone();
    void anIconOfManyPixelsIsNone();
    void aMissingFileIsNone();

private:
    [[nodiscard]] QUrl file(const QByteArray& bytes)
    {
        QFile icon(m_folder.filePath(QStringLiteral("icon.png")));
        if (icon.open(QIODevice::WriteOnly))
            icon.write(bytes);
        return fileUrl(icon.fileName().toUtf8());
    }

    [[nodiscard]] static QByteArray encoded(const QSize& size, const char* format)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format) ? bytes : QByteArray();
    }

    const QTemporaryDir m_folder;
};

void FaviconTest::aSavedIconIsShown()
{
    QCOMPARE(loadFavicon(file(encoded({ 64, 32 }, "PNG"))).size(), QSize(64, 32));
}

void FaviconTest::whatIsNoIconIsNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray png = encoded({ 64, 64 }, "PNG");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("words") << QByteArray("words");
    QTest::newRow("a page") << QByteArray("<!doctype html><title>Not found</title>");
    QTest::newRow("another format") << encoded({ 64, 64 }, "JPEG");
    QTest::newRow("only the signature") << png.left(8);
    QTest::newRow("only the head") << png.left(33);
}

void FaviconTest::whatIsNoIconIsNone()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(loadFavicon(file(bytes)).isNull());
}

void FaviconTest::anIconOfManyPixelsIsNone()
{
    QVERIFY(!loadFavicon(file(encoded({ 2048, 1 }, "PNG"))).isNull());
    QVERIFY(loadFavicon(file(encoded({ 2049, 1 }, "PNG"))).isNull());
}

void FaviconTest::aMissingFileIsNone()
{
    QVERIFY(loadFavicon(fileUrl("/of/nobody.png")).isNull());
}

QTEST_MAIN(FaviconTest)
#include "FaviconTest.moc"
