#include "Catalogue.h"
#include "InterfaceInLanguage.h"
#include "TextRecorder.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMetaProperty>
#include <QPushButton>
#include <QSet>
#include <QTest>

#include <memory>

using namespace nookle;

/// The interface in each language. The tests' font lacks the letters of Chinese and Japanese, so their room is taken by
/// signs of their width.
class TranslatedInterfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theSettingsWindowKeepsItsWidth_data() { addLanguages(); }
    void theSettingsWindowKeepsItsWidth();
    void everyControlHasRoomForItsText_data() { addLanguages(); }
    void everyControlHasRoomForItsText();
    void noTextLeavesItsPlace_data() { addLanguages(); }
    void noTextLeavesItsPlace();
    void noTextIsLeftInEnglish_data() { addLanguages(); }
    void noTextIsLeftInEnglish();
    void theSettingsAreMirroredWhereTextRunsFromTheRight_data() { addLanguages(); }
    void theSettingsAreMirroredWhereTextRunsFromTheRight();

private:
    static void addLanguages();

    std::unique_ptr<InterfaceInLanguage> m_interface;
};

namespace {

[[nodiscard]] QString describe(const QWidget& widget)
{
    return QString::fromLatin1(widget.metaObject()->className()) + QLatin1Char(' ') + widget.property("text").toString()
        + widget.property("title").toString();
}

[[nodiscard]] QList<DrawnText> textsOf(QWidget& widget)
{
    TextRecorder recorder(widget.size());
    widget.render(&recorder, QPoint(), QRegion(), QWidget::DrawChildren);
    return recorder.texts();
}

[[nodiscard]] bool hasRoom(const QWidget& widget)
{
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label && label->wordWrap())
        return label->height() >= label->heightForWidth(label->width());
    if (const auto* section = qobject_cast<const QGroupBox*>(&widget))
        return section->width() >= section->fontMetrics().horizontalAdvance(section->title());
    return widget.width() >= widget.sizeHint().width();
}

[[nodiscard]] QWidgetList allWidgets(InterfaceInLanguage& interface)
{
    QWidgetList widgets;
    for (QWidget* each : interface.widgets())
        widgets += QWidgetList{ each } + each->findChildren<QWidget*>();
    return widgets;
}

/// Everything that the widgets say to whoever looks at them or has them read.
[[nodiscard]] QSet<QString> spokenTexts(const QWidgetList& widgets)
{
    QSet<QString> texts;
    for (const QWidget* widget : widgets) {
        for (int index = 0; index < widget->metaObject()->propertyCount(); ++index) {
            const QVariant value = widget->metaObject()->property(index).read(widget);
            if (value.userType() == QMetaType::QString)
                texts.insert(value.toString());
        }
        for (const QAction* action : widget->actions())
            texts.insert(action->text());
        const auto* picker = qobject_cast<const QComboBox*>(widget);
        for (int index = 0; picker && index < picker->count(); ++index)
            texts.insert(picker->itemText(index));
    }
    return texts;
}

/// The English texts that read otherwise in the language.
[[nodiscard]] QSet<QString> translatedTexts(const QString& language)
{
    QSet<QString> texts;
    const auto catalogue = readCatalogue(QStringLiteral(NOOKLE_CATALOGUE_SOURCES "/nookle_%1.ts").arg(language));
    for (const CatalogueMessage& message : catalogue.value_or(QList<CatalogueMessage>())) {
        if (message.isFinished && message.translations.constFirst() != message.source)
            texts.insert(message.source);
    }
    return texts;
}

} // namespace

void TranslatedInterfaceTest::addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const QString& language : QStringLiteral(NOOKLE_LANGUAGES).split(QLatin1Char(' ')))
        QTest::newRow(qPrintable(language)) << language;
}

void TranslatedInterfaceTest::initTestCase()
{
    prepareDesktopFont();
}

void TranslatedInterfaceTest::init()
{
    QFETCH(QString, language);
    m_interface = std::make_unique<InterfaceInLanguage>(language, LanguageInUse::MissingLetters::asDashes);
}

void TranslatedInterfaceTest::cleanup()
{
    m_interface.reset();
}

void TranslatedInterfaceTest::theSettingsWindowKeepsItsWidth()
{
    constexpr int heightOfASmallDisplay = 720;
    QCOMPARE(m_interface->settings().width(), 440);
    QVERIFY(m_interface->settings().height() < heightOfASmallDisplay);
}

void TranslatedInterfaceTest::everyControlHasRoomForItsText()
{
    int controls = 0;
    for (const QWidget* widget : m_interface->settings().findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget)
            || qobject_cast<const QLabel*>(widget) || qobject_cast<const QGroupBox*>(widget);
        if (!isControl || !widget->isVisible())
            continue;
        ++controls;
        QVERIFY2(hasRoom(*widget), qPrintable(describe(*widget)));
    }
    QVERIFY(controls > 15);
}

void TranslatedInterfaceTest::noTextLeavesItsPlace()
{
    // The roundings of the toolkit.
    constexpr double least = 1;
    for (QWidget* widget : m_interface->widgets()) {
        const QList<DrawnText> texts = textsOf(*widget);
        QVERIFY(!texts.isEmpty());
        for (const DrawnText& drawn : texts) {
            const QRectF room = drawn.room.adjusted(-least, -least, least, least);
            QVERIFY2(room.contains(drawn.place), qPrintable(drawn.text));
        }
    }
}

void TranslatedInterfaceTest::noTextIsLeftInEnglish()
{
    QFETCH(QString, language);
    const QSet<QString> english = translatedTexts(language);
    QVERIFY(!english.isEmpty());
    const QSet<QString> left = spokenTexts(allWidgets(*m_interface)) & english;
    QVERIFY2(left.isEmpty(), qPrintable(QStringList(left.values()).join(QStringLiteral(" | "))));
}

void TranslatedInterfaceTest::theSettingsAreMirroredWhereTextRunsFromTheRight()
{
    QFETCH(QString, language);
    const QWidget& settings = m_interface->settings();
    const bool isPickerLeft = settings.findChild<QComboBox*>()->mapTo(&settings, QPoint()).x() < settings.width() / 4;
    const bool isMirrored = language == QLatin1String("ar");
    QCOMPARE(isPickerLeft, isMirrored);
    constexpr QChar leftToRightIsolate(0x2066);
    for (const QLabel* label : settings.findChildren<QLabel*>()) {
        QVERIFY((isMirrored ? label->contentsMargins().left() : label->contentsMargins().right()) == 0);
        if (label->text().contains(QLatin1String("home")))
            QCOMPARE(label->text().contains(leftToRightIsolate), isMirrored);
    }
}

QTEST_MAIN(TranslatedInterfaceTest)
#include "TranslatedInterfaceTest.moc"
