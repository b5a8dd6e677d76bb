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

QTEST_MAIN(CardsTest)
#include "CardsTest.moc"
