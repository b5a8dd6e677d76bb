#include <QTest>
class ImageDecoderTest : public QObject { Q_OBJECT };
QTEST_GUILESS_MAIN(ImageDecoderTest)
#include "ImageDecoderTest.moc"
