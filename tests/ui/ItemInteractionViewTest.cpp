#include "ItemInteractionView.h"

#include "TextPayload.h"

#include <QHelpEvent>
#include <QAction>
#include <QApplication>
#include <QEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPixmap>
#include <QTest>
#include <QTextDocument>

using namespace nookle;

class ItemInteractionViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void movingExactlyThreePointsStartsNoDrag();
    void movingMoreThanThreePointsStartsADragAndNoClick();
    void oneDragOnlyStartsForOnePress();
    void anItemThatCannotBeDraggedNeitherDragsNorClicks();
    void aDragPictureFitsTheBoxAndKeepsItsShape_data();
    void aDragPictureFitsTheBoxAndKeepsItsShape();
    void aPressAndReleaseClicks();
    void aDoubleClickClicksOnce();
    void aSeriesOfClicksClicksOnce();
    void aClickAfterAPauseOrElsewhereClicksAgain_data();
    void aClickAfterAPauseOrElsewhereClicksAgain();
    void otherButtonsDoNotClick();
    void aDragBeginsBeforeItRunsAndEndsWithWhatTheDestinationDid();
    void aRefusedDragEndsWithNone();
    void theDragCarriesTheAllowedOperations();
    void aSeparatorStandsBetweenTwoEntries();
    void anEmptyListMeansNoMenu();
    void aDisabledEntryCannotBeChosen();
    void choosingAnEntryRunsItsAction();
    void theMenuIsBuiltAnewEachTime();
    void hoveringIsReported();
    void theToolTipIsSetAndCleared();
    void aLongerToolTipIsMadeWhenItIsShown();
    void markupInAToolTipIsShownAndNotObeyed_data();
    void markupInAToolTipIsShownAndNotObeyed();
    void aToolTipOfAnyLengthIsShort();
    void anAmpersandInAMenuMarksNoKey();
    void openAndCloseOfTheMenuAreTold();
    void withoutAConfigurationNothingHappens();
    void aConfigurationReplacedDuringADragStillReportsItsEnd();

private:
    void send(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, at, view->mapToGlobal(at), button, buttons, Qt::NoModifier);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(view.get(), &event);
    }

    void press(const QPointF& at) { send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton); }
    void move(const QPointF& at) { send(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton); }
    void release(const QPointF& at) { send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton); }
    void pressAgain(const QPointF& at) { send(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton); }

    [[nodiscard]] ItemInteraction configuration()
    {
        ItemInteraction interaction;
        interaction.dragItem = [this]() -> std::optional<DragItem> {
            if (!isDraggable)
                return std::nullopt;
            return DragItem{ std::make_shared<DragPayload>(textPayload(QStringLiteral("dragged"))), QPixmap(10, 200),
                             dragPictureSize({ 10, 200 }), DragOperation::copy | DragOperation::move };
        };
        interaction.menu = [this] { return menu; };
        interaction.onHover = [this](bool isInside) {
            log.append(isInside ? QStringLiteral("enter") : QStringLiteral("leave"));
        };
        interaction.onClick = [this] { log.append(QStringLiteral("click")); };
        interaction.onDragBegan = [this] { log.append(QStringLiteral("began")); };
        interaction.onDragEnded = [this](DragOperation operation) {
            log.append(QStringLiteral("ended %1").arg(static_cast<int>(operation)));
        };
        return interaction;
    }

    std::unique_ptr<ItemInteractionView> view;
    /// Of the next events, in milliseconds.
    quint64 time = 1000;
    bool isDraggable = true;
    MenuActions menu;
    DragOperation outcome = DragOperation::copy;
    DragOperations offered;
    QSizeF pictureSize;
    QStringList log;
};

void ItemInteractionViewTest::init()
{
    view = std::make_unique<ItemInteractionView>(nullptr, [this](QWidget&, const DragItem& item) {
        log.append(QStringLiteral("run ")
                   + QString::fromUtf8(item.payload->data(QStringLiteral("text/plain")).value_or(QByteArray())));
        offered = item.allowed;
        pictureSize = item.pictureSize;
        return outcome;
    });
    view->resize(100, 80);
    view->setConfiguration(configuration());
    isDraggable = true;
    menu.clear();
    outcome = DragOperation::copy;
    log.clear();
}

void ItemInteractionViewTest::movingExactlyThreePointsStartsNoDrag()
{
    press({ 20, 20 });
    move({ 23, 20 });
    release({ 23, 20 });
    QCOMPARE(log, QStringList{ QStringLiteral("click") });
}

void ItemInteractionViewTest::movingMoreThanThreePointsStartsADragAndNoClick()
{
    press({ 20, 20 });
    move({ 20, 23.01 });
    release({ 20, 23.01 });
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("began run dragged ended 1"));
}

void ItemInteractionViewTest::oneDragOnlyStartsForOnePress()
{
    press({ 20, 20 });
    move({ 30, 20 });
    move({ 60, 20 });
    QCOMPARE(log.count(QStringLiteral("began")), 1);
}

void ItemInteractionViewTest::anItemThatCannotBeDraggedNeitherDragsNorClicks()
{
    isDraggable = false;
    press({ 20, 20 });
    move({ 40, 20 });
    release({ 40, 20 });
    QVERIFY(log.isEmpty());
}

void ItemInteractionViewTest::aDragPictureFitsTheBoxAndKeepsItsShape_data()
{
    QTest::addColumn<QSizeF>("image");
    QTest::addColumn<QSizeF>("picture");
    QTest::newRow("tall") << QSizeF(10, 200) << QSizeF(2.6, 52);
    QTest::newRow("a single pixel grows") << QSizeF(1, 1) << QSizeF(52, 52);
    QTest::newRow("wide") << QSizeF(104, 52) << QSizeF(52, 26);
    QTest::newRow("nothing") << QSizeF(0, 0) << QSizeF(0, 0);
}

void ItemInteractionViewTest::aDragPictureFitsTheBoxAndKeepsItsShape()
{
    QFETCH(const QSizeF, image);
    QFETCH(const QSizeF, picture);
    QCOMPARE(dragPictureSize(image), picture);
}

void ItemInteractionViewTest::aPressAndReleaseClicks()
{
    press({ 20, 20 });
    release({ 20, 20 });
    QCOMPARE(log, QStringList{ QStringLiteral("click") });
}

void ItemInteractionViewTest::aDoubleClickClicksOnce()
{
    press({ 20, 20 });
    release({ 20, 20 });
    pressAgain({ 20, 20 });
    release({ 20, 20 });
    QCOMPARE(log, QStringList{ QStringLiteral("click") });
}

// The toolkit gives every second press of a series as one of a double click, and all others as first ones.
void ItemInteractionViewTest::aSeriesOfClicksClicksOnce()
{
    for (int count = 0; count < 5; ++count) {
        if (count % 2 == 0)
            press({ 20, 20 });
        else
            pressAgain({ 20, 20 });
        release({ 20, 20 });
        time += 150;
    }
    QCOMPARE(log, QStringList{ QStringLiteral("click") });
}

void ItemInteractionViewTest::aClickAfterAPauseOrElsewhereClicksAgain_data()
{
    QTest::addColumn<int>("pause");
    QTest::addColumn<QPointF>("place");
    QTest::newRow("after a pause") << 1000 << QPointF(20, 20);
    QTest::newRow("elsewhere") << 150 << QPointF(60, 60);
}

void ItemInteractionViewTest::aClickAfterAPauseOrElsewhereClicksAgain()
{
    QFETCH(const int, pause);
    QFETCH(const QPointF, place);
    press({ 20, 20 });
    release({ 20, 20 });
    time += static_cast<quint64>(pause);
    press(place);
    release(place);
    QCOMPARE(log.size(), 2);
}

void ItemInteractionViewTest::otherButtonsDoNotClick()
{
    send(QEvent::MouseButtonPress, { 20, 20 }, Qt::MiddleButton, Qt::MiddleButton);
    send(QEvent::MouseButtonRelease, { 20, 20 }, Qt::MiddleButton, Qt::NoButton);
    QVERIFY(log.isEmpty());
}

void ItemInteractionViewTest::aDragBeginsBeforeItRunsAndEndsWithWhatTheDestinationDid()
{
    outcome = DragOperation::move;
    press({ 20, 20 });
    move({ 40, 20 });
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("began run dragged ended 16"));
    QCOMPARE(pictureSize, QSizeF(2.6, 52));
}

void ItemInteractionViewTest::aRefusedDragEndsWithNone()
{
    outcome = DragOperation::none;
    press({ 20, 20 });
    move({ 40, 20 });
    QCOMPARE(log.last(), QStringLiteral("ended 0"));
}

void ItemInteractionViewTest::theDragCarriesTheAllowedOperations()
{
    press({ 20, 20 });
    move({ 40, 20 });
    QCOMPARE(offered, DragOperation::copy | DragOperation::move);
}

void ItemInteractionViewTest::aSeparatorStandsBetweenTwoEntries()
{
    menu = { MenuAction{ QStringLiteral("One"), true, {} }, std::nullopt,
             MenuAction{ QStringLiteral("Two"), true, {} } };
    const auto shown = view->makeMenu();
    QVERIFY(shown);
    const QList<QAction*> entries = shown->actions();
    QCOMPARE(entries.size(), 3);
    QCOMPARE(entries[0]->text(), QStringLiteral("One"));
    QVERIFY(entries[1]->isSeparator());
    QCOMPARE(entries[2]->text(), QStringLiteral("Two"));
}

void ItemInteractionViewTest::anEmptyListMeansNoMenu()
{
    QVERIFY(!view->makeMenu());
}

void ItemInteractionViewTest::aDisabledEntryCannotBeChosen()
{
    menu = { MenuAction{ QStringLiteral("One"), false, [this] { log.append(QStringLiteral("one")); } } };
    const auto shown = view->makeMenu();
    QVERIFY(!shown->actions().first()->isEnabled());
    shown->actions().first()->trigger();
    QVERIFY(log.isEmpty());
}

void ItemInteractionViewTest::choosingAnEntryRunsItsAction()
{
    menu = { MenuAction{ QStringLiteral("One"), true, [this] { log.append(QStringLiteral("one")); } } };
    view->makeMenu()->actions().first()->trigger();
    QCOMPARE(log, QStringList{ QStringLiteral("one") });
}

void ItemInteractionViewTest::theMenuIsBuiltAnewEachTime()
{
    menu = { MenuAction{ QStringLiteral("Pin"), true, {} } };
    QCOMPARE(view->makeMenu()->actions().first()->text(), QStringLiteral("Pin"));
    menu = { MenuAction{ QStringLiteral("Unpin"), true, {} } };
    QCOMPARE(view->makeMenu()->actions().first()->text(), QStringLiteral("Unpin"));
}

void ItemInteractionViewTest::hoveringIsReported()
{
    QEnterEvent enter({ 5, 5 }, { 5, 5 }, { 5, 5 });
    QCoreApplication::sendEvent(view.get(), &enter);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view.get(), &leave);
    QCOMPARE(log, QStringList({ QStringLiteral("enter"), QStringLiteral("leave") }));
}

void ItemInteractionViewTest::theToolTipIsSetAndCleared()
{
    ItemInteraction interaction = configuration();
    interaction.toolTip = QStringLiteral("/a/path");
    view->setConfiguration(interaction);
    QCOMPARE(view->toolTip(), QStringLiteral("/a/path"));
    interaction.toolTip.reset();
    view->setConfiguration(interaction);
    QVERIFY(view->toolTip().isEmpty());
}

void ItemInteractionViewTest::aLongerToolTipIsMadeWhenItIsShown()
{
    ItemInteraction interaction = configuration();
    interaction.toolTip = QStringLiteral("Image");
    interaction.distinctToolTip = [] { return std::optional<QString>(); };
    view->setConfiguration(interaction);
    QHelpEvent asks(QEvent::ToolTip, { 5, 5 }, { 5, 5 });
    QCoreApplication::sendEvent(view.get(), &asks);
    QCOMPARE(view->toolTip(), QStringLiteral("Image"));
    interaction.distinctToolTip = [] { return std::optional(QStringLiteral("Image (1 of 2)")); };
    view->setConfiguration(interaction);
    QCOMPARE(view->toolTip(), QStringLiteral("Image"));
    QCoreApplication::sendEvent(view.get(), &asks);
    QCOMPARE(view->toolTip(), QStringLiteral("Image (1 of 2)"));
}

void ItemInteractionViewTest::markupInAToolTipIsShownAndNotObeyed_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a picture") << QStringLiteral("<img src=\"/dev/ptmx\">");
    QTest::newRow("a page") << QStringLiteral("<html><b>bold</b> &amp;  two  spaces");
    QTest::newRow("no markup") << QStringLiteral("a < b & c > d");
    QTest::newRow("a table") << QStringLiteral("<table border=1><tr><td>x</table>");
}

void ItemInteractionViewTest::markupInAToolTipIsShownAndNotObeyed()
{
    QFETCH(const QString, text);
    ItemInteraction interaction = configuration();
    interaction.toolTip = text;
    view->setConfiguration(interaction);
    // Read as the toolkit reads it.
    QTextDocument shown;
    if (Qt::mightBeRichText(view->toolTip()))
        shown.setHtml(view->toolTip());
    else
        shown.setPlainText(view->toolTip());
    QCOMPARE(shown.toPlainText(), text);
}

void ItemInteractionViewTest::aToolTipOfAnyLengthIsShort()
{
    ItemInteraction interaction = configuration();
    interaction.toolTip = QString(50'000'000, QLatin1Char('a'));
    view->setConfiguration(interaction);
    QCOMPARE(view->toolTip().size(), 300);
}

void ItemInteractionViewTest::anAmpersandInAMenuMarksNoKey()
{
    menu = { MenuAction{ QStringLiteral("Copy & Paste"), true, {} } };
    QCOMPARE(view->makeMenu()->actions().first()->text(), QStringLiteral("Copy && Paste"));
}

void ItemInteractionViewTest::openAndCloseOfTheMenuAreTold()
{
    menu = { MenuAction{ QStringLiteral("One"), true, {} } };
    ItemInteraction interaction = configuration();
    interaction.onMenuOpenChanged = [this](bool isOpen) {
        log.append(isOpen ? QStringLiteral("open") : QStringLiteral("closed"));
    };
    view->setConfiguration(interaction);
    view->showMenu({ 5, 5 });
    QCOMPARE(log, QStringList{ QStringLiteral("open") });
    // The tile may go first.
    view.reset();
    QApplication::activePopupWidget()->close();
    QCOMPARE(log, QStringList({ QStringLiteral("open"), QStringLiteral("closed") }));
}

void ItemInteractionViewTest::withoutAConfigurationNothingHappens()
{
    view = std::make_unique<ItemInteractionView>(nullptr, [this](QWidget&, const DragItem&) {
        log.append(QStringLiteral("run"));
        return DragOperation::none;
    });
    press({ 20, 20 });
    move({ 60, 20 });
    release({ 60, 20 });
    press({ 20, 20 });
    release({ 20, 20 });
    QVERIFY(!view->makeMenu());
    QVERIFY(log.isEmpty());
}

void ItemInteractionViewTest::aConfigurationReplacedDuringADragStillReportsItsEnd()
{
    ItemInteraction interaction = configuration();
    interaction.onDragBegan = [this] { view->setConfiguration({}); };
    view->setConfiguration(interaction);
    press({ 20, 20 });
    move({ 40, 20 });
    QCOMPARE(log.last(), QStringLiteral("ended 1"));
}

QTEST_MAIN(ItemInteractionViewTest)
#include "ItemInteractionViewTest.moc"
