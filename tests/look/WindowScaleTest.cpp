#include "WindowScale.h"

#include <QTest>

using namespace nookle;

class WindowScaleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatTheResolutionDoesNotSayIsLeft_data();
    void whatTheResolutionDoesNotSayIsLeft();
    void aResolutionThatNoDisplayHasIsNotTaken_data();
    void aResolutionThatNoDisplayHasIsNotTaken();
};

void WindowScaleTest::whatTheResolutionDoesNotSayIsLeft_data()
{
    constexpr int dpi = 1024;
    QTest::addColumn<ToolkitSettings::Values>("settings");
    QTest::addColumn<int>("scale");
    const auto row = [](const char* name, const ToolkitSettings::Values& settings, int scale) {
        QTest::newRow(name) << settings << scale;
    };
    row("no settings", {}, 1);
    row("not enlarged", { { "Gdk/WindowScalingFactor", 1 }, { "Xft/DPI", 96 * dpi } }, 1);
    row("enlarged", { { "Gdk/WindowScalingFactor", 2 } }, 2);
    row("enlarged, with a resolution for texts", { { "Gdk/WindowScalingFactor", 2 }, { "Xft/DPI", 96 * dpi } }, 2);
    row("enlarged by the resolution too",
        { { "Gdk/WindowScalingFactor", 2 }, { "Gdk/UnscaledDPI", 96 * dpi }, { "Xft/DPI", 192 * dpi } }, 1);
    row("enlarged by the resolution among the resources",
        { { "Gdk/WindowScalingFactor", 2 }, { "Gdk/UnscaledDPI", 96 * dpi } }, 1);
    row("nothing that can be", { { "Gdk/WindowScalingFactor", 0 } }, 1);
    row("nothing that can be shown", { { "Gdk/WindowScalingFactor", 1000 } }, 1);
    row("no number", { { "Gdk/WindowScalingFactor", QStringLiteral("large") } }, 1);
}

void WindowScaleTest::whatTheResolutionDoesNotSayIsLeft()
{
    QFETCH(const ToolkitSettings::Values, settings);
    QTEST(windowScale(settings), "scale");
}

void WindowScaleTest::aResolutionThatNoDisplayHasIsNotTaken_data()
{
    constexpr int dpi = 1024;
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("none") << QVariant() << true;
    QTest::newRow("usual") << QVariant(96 * dpi) << true;
    QTest::newRow("large texts") << QVariant(120 * dpi + 512) << true;
    QTest::newRow("half") << QVariant(48 * dpi) << true;
    QTest::newRow("eight times") << QVariant(8 * 96 * dpi) << true;
    QTest::newRow("beyond") << QVariant(8 * 96 * dpi + dpi) << false;
    QTest::newRow("in whole dots") << QVariant(9600) << false;
    QTest::newRow("zero") << QVariant(0) << false;
    QTest::newRow("negative") << QVariant(-96 * dpi) << false;
    QTest::newRow("no number") << QVariant(QStringLiteral("large")) << true;
}

void WindowScaleTest::aResolutionThatNoDisplayHasIsNotTaken()
{
    QFETCH(const QVariant, setting);
    QFETCH(const bool, isTaken);
    ToolkitSettings::Values settings;
    if (setting.isValid())
        settings.insert("Xft/DPI", setting);
    QCOMPARE(resolutionInstead(settings), isTaken ? std::nullopt : std::optional(96));
}

QTEST_APPLESS_MAIN(WindowScaleTest)
#include "WindowScaleTest.moc"
