#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

/// The texts by which desktops, file managers and software centres offer the program.
class DesktopEntriesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsInEveryLanguage_data();
    void everyTextIsInEveryLanguage();
    void everyTextForSoftwareCentresIsInEveryLanguage();
};

namespace {

/// The languages as entries name them, where there is no English.
[[nodiscard]] QStringList languages()
{
    QStringList names = QStringLiteral(NOOKLE_LANGUAGES).split(QLatin1Char(' '));
    names.removeOne(QStringLiteral("en"));
    names.replaceInStrings(QStringLiteral("zh_Hans"), QStringLiteral("zh_CN"));
    names.sort();
    return names;
}

/// For each line with a text that is translated, the languages that follow it with a text of their own.
[[nodiscard]] QHash<QString, QStringList> readTexts(const QByteArray& entry)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(Name|GenericName|Comment|Keywords)(?:\\[(\\w+)\\])?=(.+)$"));
    QHash<QString, QStringList> texts;
    QString current;
    int number = 0;
    for (const QString& line : QString::fromUtf8(entry).split(QLatin1Char('\n'))) {
        ++number;
        const auto match = pattern.match(line);
        if (!match.hasMatch() || match.captured(3) == QLatin1String("Nookle"))
            continue;
        if (match.captured(2).isEmpty()) {
            current = QStringLiteral("%1: %2").arg(number).arg(line);
            texts.insert(current, {});
        } else if (current.contains(QLatin1Char(' ') + match.captured(1) + QLatin1Char('='))) {
            texts[current].append(match.captured(2));
        }
    }
    return texts;
}

void verifyLanguages(const QHash<QString, QStringList>& texts)
{
    QVERIFY(!texts.isEmpty());
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        QStringList found = text.value();
        found.sort();
        QVERIFY2(found == languages(),
                 qPrintable(text.key() + QLatin1String(" is in ") + found.join(QLatin1Char(' '))));
    }
}

/// The same of the description for software centres.
[[nodiscard]] QHash<QString, QStringList> readDescribedTexts(const QByteArray& description)
{
    const QStringList translated{ QStringLiteral("name"), QStringLiteral("summary"), QStringLiteral("p"),
                                  QStringLiteral("li"),   QStringLiteral("caption"), QStringLiteral("keyword") };
    QHash<QString, QStringList> texts;
    QString current;
    QXmlStreamReader xml(description);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || !translated.contains(xml.name().toString()))
            continue;
        // Languages are written with a hyphen here.
        QString language = xml.attributes().value(QLatin1String("xml:lang")).toString();
        language.replace(QLatin1Char('-'), QLatin1Char('_'));
        const QString content = xml.readElementText();
        if (content == QLatin1String("Nookle"))
            continue;
        const QString text = QStringLiteral("%1: %2").arg(xml.lineNumber()).arg(content);
        if (!language.isEmpty()) {
            texts[current].append(language);
            continue;
        }
        current = text;
        texts.insert(current, {});
    }
    return xml.hasError() ? QHash<QString, QStringList>() : texts;
}

} // namespace

void DesktopEntriesTest::everyTextIsInEveryLanguage_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : { "org.nookle.Nookle.desktop", "services/nemo/org.nookle.Nookle.nemo_action",
                              "services/pcmanfm/org.nookle.Nookle.desktop", "services/plasma/org.nookle.Nookle.desktop",
                              "services/thunar/org.nookle.Nookle.desktop" })
        QTest::newRow(name) << QString::fromLatin1(name);
}

void DesktopEntriesTest::everyTextIsInEveryLanguage()
{
    QFETCH(QString, name);
    QFile file(QStringLiteral(NOOKLE_DATA_FOLDER "/") + name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    verifyLanguages(readTexts(file.readAll()));
}

void DesktopEntriesTest::everyTextForSoftwareCentresIsInEveryLanguage()
{
    QFile file(QStringLiteral(NOOKLE_DATA_FOLDER "/org.nookle.Nookle.metainfo.xml.in"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    verifyLanguages(readDescribedTexts(file.readAll()));
}

QTEST_GUILESS_MAIN(DesktopEntriesTest)
#include "DesktopEntriesTest.moc"
