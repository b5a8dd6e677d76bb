#include "FontDescription.h"

#include <QGuiApplication>
#include <QTest>

using namespace nookle;

class FontDescriptionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void weightStyleAndWidthFollow_data();
    void weightStyleAndWidthFollow();
    void theStyleOfTheFontBeforeIsForgotten();
    void aDescriptionWithoutFamilyOrSizeIsNone_data();
    void aDescriptionWithoutFamilyOrSizeIsNone();
};

void FontDescriptionTest::weightStyleAndWidthFollow_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QStringList>("families");
    QTest::addColumn<int>("weight");
    QTest::addColumn<bool>("isItalic");
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("size");
    const auto row = [](const char* description, const QStringList& families, int weight, bool isItalic, int width,
                        double size) {
        QTest::newRow(description) << QString::fromLatin1(description) << families << weight << isItalic << width
                                   << size;
    };
    const int usual = QFont::AnyStretch;
    row("Cantarell 11", { QStringLiteral("Cantarell") }, 400, false, usual, 11);
    row("Cantarell Bold 11", { QStringLiteral("Cantarell") }, 700, false, usual, 11);
    row("Noto Sans Light Italic 10", { QStringLiteral("Noto Sans") }, 300, true, usual, 10);
    row("DejaVu Sans Semi-Bold Oblique 9.5", { QStringLiteral("DejaVu Sans") }, 600, true, usual, 9.5);
    row("Ubuntu Medium 11", { QStringLiteral("Ubuntu") }, 500, false, usual, 11);
    row("Noto Sans Bold Condensed 10", { QStringLiteral("Noto Sans") }, 700, false, QFont::Condensed, 10);
    row("Sans Regular 10", { QStringLiteral("Sans") }, 400, false, usual, 10);
    row("Inter, Cantarell Bold 11", { QStringLiteral("Inter"), QStringLiteral("Cantarell") }, 700, false, usual, 11);
    // With a comma the word belongs to the family.
    row("Arial Black, 10", { QStringLiteral("Arial Black") }, 400, false, usual, 10);
    row("Arial Black, Bold 10", { QStringLiteral("Arial Black") }, 700, false, usual, 10);
    row("Cantarell Bold 11 @wght=650", { QStringLiteral("Cantarell") }, 700, false, usual, 11);
    row("Cantarell 11 #tnum=1 @opsz=9", { QStringLiteral("Cantarell") }, 400, false, usual, 11);
    row("Cantarell Bold 14px", { QStringLiteral("Cantarell") }, 700, false, usual, 10.5);
    // A word in the middle of a family is a part of it.
    row("Bold Sans 10", { QStringLiteral("Bold Sans") }, 400, false, usual, 10);
}

void FontDescriptionTest::weightStyleAndWidthFollow()
{
    QFETCH(const QString, description);
    const auto font = describedFont(description);
    QVERIFY(font);
    QTEST(font->families(), "families");
    QTEST(int(font->weight()), "weight");
    QTEST(font->style() != QFont::StyleNormal, "isItalic");
    QTEST(font->stretch(), "width");
    QTEST(font->pointSizeF(), "size");
    // Bold texts can be made of it.
    QVERIFY(font->styleName().isEmpty());
}

void FontDescriptionTest::theStyleOfTheFontBeforeIsForgotten()
{
    const QFont before = QGuiApplication::font();
    const auto bold = describedFont(QStringLiteral("Cantarell Bold Italic Condensed 11"));
    QVERIFY(bold);
    QGuiApplication::setFont(*bold);
    const auto plain = describedFont(QStringLiteral("Cantarell 11"));
    QGuiApplication::setFont(before);
    QVERIFY(plain);
    QCOMPARE(int(plain->weight()), int(QFont::Normal));
    QCOMPARE(plain->style(), QFont::StyleNormal);
    QCOMPARE(plain->stretch(), int(QFont::AnyStretch));
    QVERIFY(*plain != *bold);
}

void FontDescriptionTest::aDescriptionWithoutFamilyOrSizeIsNone_data()
{
    QTest::addColumn<QString>("description");
    for (const char* description : { "", "Cantarell", "11", "Bold 11", ", 11", "Cantarell 0", "Cantarell -3", "14px",
                                     "Cantarell px", "@wght=650" })
        QTest::newRow(description) << QString::fromLatin1(description);
}

void FontDescriptionTest::aDescriptionWithoutFamilyOrSizeIsNone()
{
    QFETCH(const QString, description);
    QVERIFY(!describedFont(description));
}

QTEST_MAIN(FontDescriptionTest)
#include "FontDescriptionTest.moc"
