#include "XSettingsText.h"

#include <QTest>
#include <QtEndian>

#include <cstdint>

using namespace nookle;

class XSettingsTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stringsAndIntegersAreRead_data();
    void stringsAndIntegersAreRead();
    void everyCutLeavesWholeEntries();
    void anUnknownTypeEndsTheList();
    void aLengthThatLiesReadsNothingBeyondTheEnd();

private:
    /// A property with an icon theme, a colour, and a flag.
    [[nodiscard]] static QByteArray property(bool isBigEndian);
};

namespace {

template <typename Number> [[nodiscard]] QByteArray number(Number value, bool isBigEndian)
{
    const Number stored = isBigEndian ? qToBigEndian(value) : qToLittleEndian(value);
    return { reinterpret_cast<const char*>(&stored), sizeof stored };
}

[[nodiscard]] QByteArray padded(QByteArray text)
{
    while (text.size() % 4 != 0)
        text.append('\0');
    return text;
}

[[nodiscard]] QByteArray entry(char type, const QByteArray& name, bool isBigEndian)
{
    return QByteArray(1, type) + QByteArray(1, '\0') + number(static_cast<std::uint16_t>(name.size()), isBigEndian)
        + padded(name) + number<std::uint32_t>(7, isBigEndian);
}

} // namespace

QByteArray XSettingsTextTest::property(bool isBigEndian)
{
    QByteArray bytes(4, '\0');
    bytes[0] = isBigEndian ? 1 : 0;
    bytes += number<std::uint32_t>(3, isBigEndian) + number<std::uint32_t>(3, isBigEndian);
    bytes += entry(1, "Net/IconThemeName", isBigEndian) + number<std::uint32_t>(7, isBigEndian) + padded("Papirus");
    bytes += entry(2, "Gtk/Color", isBigEndian) + QByteArray(8, '\x7f');
    bytes += entry(0, "Gtk/EnableAnimations", isBigEndian) + number<std::int32_t>(-1, isBigEndian);
    return bytes;
}

void XSettingsTextTest::stringsAndIntegersAreRead_data()
{
    QTest::addColumn<bool>("isBigEndian");
    QTest::newRow("little endian") << false;
    QTest::newRow("big endian") << true;
}

void XSettingsTextTest::stringsAndIntegersAreRead()
{
    QFETCH(const bool, isBigEndian);
    const ToolkitSettings::Values expected{ { "Net/IconThemeName", QStringLiteral("Papirus") },
                                            { "Gtk/EnableAnimations", -1 } };
    QCOMPARE(parseXSettings(property(isBigEndian)), expected);
}

void XSettingsTextTest::everyCutLeavesWholeEntries()
{
    const QByteArray whole = property(false);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const ToolkitSettings::Values values = parseXSettings(whole.left(length));
        QVERIFY(!values.contains("Gtk/EnableAnimations"));
        if (values.contains("Net/IconThemeName"))
            QCOMPARE(values.value("Net/IconThemeName").toString(), QStringLiteral("Papirus"));
    }
}

void XSettingsTextTest::anUnknownTypeEndsTheList()
{
    QByteArray bytes(8, '\0');
    bytes += number<std::uint32_t>(2, false);
    bytes += entry(9, "Other", false) + number<std::int32_t>(1, false);
    bytes += entry(0, "Gtk/EnableAnimations", false) + number<std::int32_t>(1, false);
    QVERIFY(parseXSettings(bytes).isEmpty());
}

void XSettingsTextTest::aLengthThatLiesReadsNothingBeyondTheEnd()
{
    QByteArray bytes(8, '\0');
    bytes += number<std::uint32_t>(0xffffffff, false);
    bytes += entry(1, "Net/IconThemeName", false) + number<std::uint32_t>(0xfffffff0, false) + "Papirus";
    QVERIFY(parseXSettings(bytes).isEmpty());
}

QTEST_APPLESS_MAIN(XSettingsTextTest)
#include "XSettingsTextTest.moc"
