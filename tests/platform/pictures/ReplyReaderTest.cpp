#include <QTest>
class ReplyReaderTest : public QObject { Q_OBJECT };
QTEST_GUILESS_MAIN(ReplyReaderTest)
#include "ReplyReaderTest.moc"
