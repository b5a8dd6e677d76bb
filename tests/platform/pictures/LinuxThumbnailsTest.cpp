#include <QTest>
class LinuxThumbnailsTest : public QObject { Q_OBJECT };
QTEST_GUILESS_MAIN(LinuxThumbnailsTest)
#include "LinuxThumbnailsTest.moc"
