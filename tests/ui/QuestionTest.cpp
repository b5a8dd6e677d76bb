#include "Question.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace nookle;

class QuestionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void agreementProceeds();
    void cancellingDoesNotProceed();
    void escapeDoesNotProceed();
    void theKeyThatAskedDoesNotAnswer();
    void theQuestionIsShownAsItIs();

private:
    [[nodiscard]] static QMessageBox* box()
    {
        for (QWidget* each : QApplication::topLevelWidgets()) {
            auto* found = qobject_cast<QMessageBox*>(each);
            if (found && found->isVisible())
                return found;
        }
        return nullptr;
    }
    static void press(QMessageBox::ButtonRole role)
    {
        for (QAbstractButton* each : box()->buttons()) {
            if (box()->buttonRole(each) == role) {
                each->click();
                return;
            }
        }
        QFAIL("no such button");
    }

    int m_proceeded = 0;
};

void QuestionTest::init()
{
    m_proceeded = 0;
    askInWindow(QStringLiteral("<b>All</b> at once?"), QStringLiteral("Yes"), [this] { ++m_proceeded; });
    QVERIFY(box());
    QCOMPARE(m_proceeded, 0);
}

void QuestionTest::agreementProceeds()
{
    const QPointer<QMessageBox> shown(box());
    press(QMessageBox::AcceptRole);
    QCOMPARE(m_proceeded, 1);
    QTRY_VERIFY(!shown);
}

void QuestionTest::cancellingDoesNotProceed()
{
    const QPointer<QMessageBox> shown(box());
    press(QMessageBox::RejectRole);
    QCOMPARE(m_proceeded, 0);
    QTRY_VERIFY(!shown);
}

void QuestionTest::escapeDoesNotProceed()
{
    QTest::keyClick(box(), Qt::Key_Escape);
    QCOMPARE(m_proceeded, 0);
    QVERIFY(!box());
}

void QuestionTest::theKeyThatAskedDoesNotAnswer()
{
    QTest::keyClick(box(), Qt::Key_Return);
    QCOMPARE(m_proceeded, 0);
}

void QuestionTest::theQuestionIsShownAsItIs()
{
    QCOMPARE(box()->text(), QStringLiteral("<b>All</b> at once?"));
    QCOMPARE(box()->textFormat(), Qt::PlainText);
    QCOMPARE(box()->buttons().constFirst()->text(), QStringLiteral("Yes"));
    box()->close();
}

QTEST_MAIN(QuestionTest)
#include "QuestionTest.moc"
