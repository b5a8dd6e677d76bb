#include "GnomeSettings.h"

#include "TemporaryFolder.h"

#include <QProcess>
#include <QTest>

#include <gio/gio.h>

using namespace nookle;

class GnomeSettingsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aSchemaThatIsNotThereHasNoSettings();
    void aSchemaWithoutAPlaceHasNoSettings();
    void whatNobodyHasSetHasItsDefault();
    void whatIsSetIsReadAnew();
    void aKeyThatIsNotThereOrOfAnotherTypeIsEmpty();
    void aValueThatTheSchemaDoesNotAllowIsNotTaken();

private:
    static void set(const char* key, GVariant* value)
    {
        GSettings* const settings = g_settings_new("org.test.one");
        QVERIFY(g_settings_set_value(settings, key, value));
        g_object_unref(settings);
    }

    TemporaryFolder m_folder;
};

void GnomeSettingsTest::initTestCase()
{
    m_folder.makeFile("test.gschema.xml",
                      "<schemalist><schema id='org.test.one' path='/test/'>"
                      "<key name='text' type='s'><default>'word'</default></key>"
                      "<key name='texts' type='as'><default>['a', 'b']</default></key>"
                      "<key name='number' type='i'><default>7</default></key>"
                      "<key name='small' type='i'><range min='0' max='9'/><default>1</default></key></schema>"
                      "<schema id='org.test.wide' path='/test/'>"
                      "<key name='small' type='i'><default>1</default></key></schema>"
                      "<schema id='org.test.anywhere'>"
                      "<key name='text' type='s'><default>'word'</default></key></schema></schemalist>");
    QCOMPARE(QProcess::execute(QStringLiteral("glib-compile-schemas"), { QString::fromUtf8(m_folder.path()) }), 0);
    qputenv("GSETTINGS_SCHEMA_DIR", m_folder.path());
    qputenv("GSETTINGS_BACKEND", "memory");
}

void GnomeSettingsTest::aSchemaThatIsNotThereHasNoSettings()
{
    QVERIFY(!GnomeSettings::tryOpen("org.test.none"));
}

void GnomeSettingsTest::aSchemaWithoutAPlaceHasNoSettings()
{
    QVERIFY(!GnomeSettings::tryOpen("org.test.anywhere"));
}

void GnomeSettingsTest::whatNobodyHasSetHasItsDefault()
{
    const auto settings = GnomeSettings::tryOpen("org.test.one");
    QVERIFY(settings);
    QCOMPARE(settings->text("text"), QByteArray("word"));
    QCOMPARE(settings->texts("texts"), QList<QByteArray>({ "a", "b" }));
    QCOMPARE(settings->number("number"), 7);
}

void GnomeSettingsTest::whatIsSetIsReadAnew()
{
    const auto settings = GnomeSettings::tryOpen("org.test.one");
    QVERIFY(settings);
    const char* const texts[] = { "c", nullptr };
    set("text", g_variant_new_string("other"));
    set("texts", g_variant_new_strv(texts, -1));
    set("number", g_variant_new_int32(8));
    QCOMPARE(settings->text("text"), QByteArray("other"));
    QCOMPARE(settings->texts("texts"), QList<QByteArray>{ "c" });
    QCOMPARE(settings->number("number"), 8);
    set("number", g_variant_new_int32(9));
    QCOMPARE(settings->number("number"), 9);
}

void GnomeSettingsTest::aKeyThatIsNotThereOrOfAnotherTypeIsEmpty()
{
    const auto settings = GnomeSettings::tryOpen("org.test.one");
    QVERIFY(settings);
    QCOMPARE(settings->text("none"), QByteArray());
    QCOMPARE(settings->text("number"), QByteArray());
    QCOMPARE(settings->texts("text"), QList<QByteArray>());
    QCOMPARE(settings->number("text"), 0);
}

void GnomeSettingsTest::aValueThatTheSchemaDoesNotAllowIsNotTaken()
{
    // The same place without the limit, as an older version of the schema may have had it.
    GSettings* const wide = g_settings_new("org.test.wide");
    QVERIFY(g_settings_set_int(wide, "small", 10));
    const auto settings = GnomeSettings::tryOpen("org.test.one");
    QVERIFY(settings);
    QCOMPARE(settings->number("small"), 1);
    QVERIFY(g_settings_set_int(wide, "small", 2));
    QCOMPARE(settings->number("small"), 2);
    g_object_unref(wide);
}

QTEST_GUILESS_MAIN(GnomeSettingsTest)
#include "GnomeSettingsTest.moc"
