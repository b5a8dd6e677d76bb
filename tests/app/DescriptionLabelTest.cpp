#include "DescriptionLabel.h"

#include "DesktopLook.h"
#include "DesktopPalette.h"

#include <QApplication>
#include <QGroupBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace nookle;

class DescriptionLabelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QApplication::setPalette(m_usual); }

    void aSentenceCanBeRead_data();
    void aSentenceCanBeRead();
    void hintsThatCanBeReadKeepTheirColour();

private:
    const QPalette m_usual = QApplication::palette();
};

namespace {

[[nodiscard]] double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

[[nodiscard]] double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

[[nodiscard]] QPalette palette(const char* window, const char* text, const char* hint)
{
    const QColor ground = QColor(QLatin1String(window));
    QPalette palette(ground, ground);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        palette.setColor(role, QColor(QLatin1String(text)));
    palette.setColor(QPalette::PlaceholderText, QColor(QLatin1String(hint)));
    return palette;
}

/// As the desktop does. The toolkit tells widgets of it only while the program is running.
void changeColors(const QPalette& colors)
{
    QTimer::singleShot(0, [&colors] {
        QApplication::setPalette(colors);
        QTimer::singleShot(0, [] { QApplication::exit(); });
    });
    QApplication::exec();
}

/// A sentence below a control in a group, as the settings show it.
struct Sentence {
    Sentence()
    {
        auto* rows = new QVBoxLayout(&group);
        rows->addWidget(control);
        label = new DescriptionLabel(*control);
        label->setDescription(QStringLiteral("Short."));
        rows->addWidget(label);
        constexpr QSize size(300, 120);
        group.resize(size);
    }

    /// What the label lies on, beside its text.
    [[nodiscard]] QColor ground()
    {
        return group.grab().toImage().pixelColor(label->geometry().bottomRight() - QPoint(2, 2));
    }

    QGroupBox group;
    QPushButton* control = new QPushButton(QStringLiteral("Control"));
    DescriptionLabel* label = nullptr;
};

} // namespace

void DescriptionLabelTest::aSentenceCanBeRead_data()
{
    QTest::addColumn<QPalette>("colors");
    const QPalette light(QColor(0xef, 0xef, 0xef));
    const DesktopLook dark{ .isDark = true };
    QTest::newRow("the toolkit's") << light;
    QTest::newRow("dark") << desktopPalette(light, dark);
    QTest::newRow("dark, more contrast") << desktopPalette(light, { .isDark = true, .hasHighContrast = true });
    QTest::newRow("light, gray texts") << palette("#f6f5f4", "#2e3436", "#802e3436");
    QTest::newRow("dark, faint hints") << palette("#2a2e32", "#fcfcfc", "#6e7175");
    QTest::newRow("dark, transparent hints") << palette("#353535", "#eeeeec", "#80eeeeec");
}

// Also when the colours change while the label is there.
void DescriptionLabelTest::aSentenceCanBeRead()
{
    QFETCH(const QPalette, colors);
    Sentence sentence;
    changeColors(colors);
    const QColor text = sentence.label->palette().color(sentence.label->foregroundRole());
    const QColor ground = sentence.ground();
    QCOMPARE(text.alpha(), 255);
    QVERIFY2(contrast(text, ground) >= 4.5, qPrintable(text.name() + QStringLiteral(" on ") + ground.name()));
    // It is still less than the text of the control.
    QVERIFY(contrast(text, ground) < contrast(colors.color(QPalette::WindowText), ground));
}

void DescriptionLabelTest::hintsThatCanBeReadKeepTheirColour()
{
    const Sentence sentence;
    changeColors(palette("#ffffff", "#000000", "#5e5e5e"));
    QCOMPARE(sentence.label->palette().color(QPalette::PlaceholderText), QColor(0x5e, 0x5e, 0x5e));
}

QTEST_MAIN(DescriptionLabelTest)
#include "DescriptionLabelTest.moc"
