#include "Cards.h"

#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTest>

using namespace nookle;

class CardsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTextTurnsNoDirectionOnItsPage();
    void linesStayLines();
    void aLongTextIsCutByTheShapeOfThePage();

private:
    [[nodiscard]] static QImage page(const QString& text)
    {
        QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        paintTextPage(painter, image.rect(), text, QPalette());
        return image;
    }
};

void CardsTest::aTextTurnsNoDirectionOnItsPage()
{
    QCOMPARE(page(QStringLiteral("a \u202egnp.exe")), page(QStringLiteral("a gnp.exe")));
    QVERIFY(page(QStringLiteral("a gnp.exe")) != page(QStringLiteral("a exe.png")));
}

void CardsTest::linesStayLines()
{
    QCOMPARE(page(QStringLiteral("a\r\nb")), page(QStringLiteral("a\nb")));
    QVERIFY(page(QStringLiteral("a\nb")) != page(QStringLiteral("a b")));
}

void CardsTest::aLongTextIsCutByTheShapeOfThePage()
{
    const auto drawn = [](const QString& text) {
        QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paintTextPage(painter, image.rect(), text, QPalette());
        return image;
    };
    const QImage blank = drawn(QString());
    // Rows of letters without a gap between the lines that is as high as the padding.
    const QImage full = drawn(QStringLiteral("MMMMMMMM\n").repeated(20));
    QVERIFY(full.copy(0, 56, 60, 3) != blank.copy(0, 56, 60, 3));
    QCOMPARE(full.copy(0, 0, 60, 4), blank.copy(0, 0, 60, 4));
    QCOMPARE(qAlpha(full.pixel(0, 59)), qAlpha(blank.pixel(0, 59)));
}

QTEST_MAIN(CardsTest)
#include "CardsTest.moc"
