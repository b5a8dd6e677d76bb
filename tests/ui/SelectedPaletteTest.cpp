#include "SelectedPalette.h"

#include <QTest>

#include <algorithm>
#include <cmath>

using namespace nookle;

class SelectedPaletteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLineIsTheDesktopsHighlight();
    void anIconInTheColourOfTheAccentIsSeen_data();
    void anIconInTheColourOfTheAccentIsSeen();
    void selectedPartsCanBeToldFromThePanel_data();
    void selectedPartsCanBeToldFromThePanel();

private:
    [[nodiscard]] static double luminance(const QColor& color)
    {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    }
    [[nodiscard]] static double contrast(const QColor& one, const QColor& other)
    {
        const double first = luminance(one) + 0.05;
        const double second = luminance(other) + 0.05;
        return std::max(first, second) / std::min(first, second);
    }
    [[nodiscard]] static QPalette palette(const char* panel, const char* text, const char* highlight)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(QLatin1String(panel)));
        palette.setColor(QPalette::WindowText, QColor(QLatin1String(text)));
        palette.setColor(QPalette::Highlight, QColor(QLatin1String(highlight)));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        return palette;
    }
};

void SelectedPaletteTest::theLineIsTheDesktopsHighlight()
{
    const QPalette selected = selectedPalette(palette("#f4f4f5", "#1d1d1f", "#1a5fb4"));
    QCOMPARE(selected.color(QPalette::Highlight), QColor(QLatin1String("#1a5fb4")));
    QCOMPARE(selected.color(QPalette::WindowText), QColor(QLatin1String("#1d1d1f")));
}

void SelectedPaletteTest::selectedPartsCanBeToldFromThePanel_data()
{
    QTest::addColumn<QPalette>("colors");
    QTest::newRow("light") << palette("#f4f4f5", "#1d1d1f", "#2f7cf6");
    QTest::newRow("dark") << palette("#2b2b2e", "#f2f2f4", "#4c92ff");
    QTest::newRow("pale accent, light") << palette("#eff0f1", "#232629", "#3daee9");
    QTest::newRow("pale accent, dark") << palette("#31363b", "#eff0f1", "#3daee9");
    QTest::newRow("yellow, light") << palette("#ffffff", "#000000", "#f6d32d");
    QTest::newRow("black, dark") << palette("#101010", "#ffffff", "#202020");
    QTest::newRow("the panel's own colour") << palette("#808080", "#000000", "#808080");
}

void SelectedPaletteTest::selectedPartsCanBeToldFromThePanel()
{
    QFETCH(const QPalette, colors);
    const QPalette selected = selectedPalette(colors);
    const QColor ground = selected.color(QPalette::Window);
    const QColor line = selected.color(QPalette::Highlight);
    QVERIFY2(contrast(line, colors.color(QPalette::Window)) >= 3, qPrintable(line.name()));
    QVERIFY2(contrast(line, ground) >= 3, qPrintable(line.name()));
    QVERIFY(contrast(ground, selected.color(QPalette::WindowText)) >= 4.5);
}

void SelectedPaletteTest::anIconInTheColourOfTheAccentIsSeen_data()
{
    QTest::addColumn<QPalette>("colors");
    QTest::newRow("light") << palette("#eff0f1", "#232629", "#3daee9");
    QTest::newRow("dark") << palette("#31363b", "#eff0f1", "#3daee9");
}

// As easily as on the panel, or nearly so.
void SelectedPaletteTest::anIconInTheColourOfTheAccentIsSeen()
{
    QFETCH(const QPalette, colors);
    const QColor icon = colors.color(QPalette::Highlight);
    const double onPanel = contrast(icon, colors.color(QPalette::Window));
    const double onGround = contrast(icon, selectedPalette(colors).color(QPalette::Window));
    QVERIFY2(onGround > 0.7 * onPanel, qPrintable(QString::number(onGround)));
}

QTEST_GUILESS_MAIN(SelectedPaletteTest)
#include "SelectedPaletteTest.moc"
