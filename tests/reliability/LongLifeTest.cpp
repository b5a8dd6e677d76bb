#include "FakeCompositing.h"
#include "FakeFileTransfers.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakePasteboard.h"
#include "FakeTrash.h"
#include "FakeUserDefaults.h"
#include "FakeWorkspace.h"
#include "FileUrl.h"
#include "LinuxFileReferences.h"
#include "MimeDropPayload.h"
#include "PanelPinning.h"
#include "ShelfStore.h"
#include "ShelfView.h"
#include "TemporaryFolder.h"
#include "Thumbnails.h"

#include <QRandomGenerator>
#include <QtTest>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

using namespace nookle;

namespace {

constexpr int fileCount = 200;
constexpr qsizetype shelfSize = 50;
constexpr int addsPerShowing = 10;
/// Until everything that is made once has been made.
constexpr int warmUp = 1000;
#ifdef __SANITIZE_ADDRESS__
// The sanitizer keeps what is freed for a while.
constexpr double allowedGrowth = 10;
#else
constexpr double allowedGrowth = 1.05;
#endif

[[nodiscard]] long residentPages()
{
    std::ifstream file("/proc/self/statm");
    long size = 0;
    long resident = 0;
    file >> size >> resident;
    return resident;
}

[[nodiscard]] long openDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

[[nodiscard]] long watches()
{
    long count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fdinfo")) {
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);)
            count += line.starts_with("inotify ") ? 1 : 0;
    }
    return count;
}

[[nodiscard]] ShelfStore::Environment environmentWith(FakeTrash& trash)
{
    ShelfStore::Environment environment;
    environment.moveToTrash = [&trash](const QUrl& file) { return trash.moveToTrash(file); };
    environment.fetchesLinkMetadata = false;
    return environment;
}

/// Thumbnails that take for ever.
class EndlessThumbnails final : public Thumbnails {
public:
    std::unique_ptr<ThumbnailRequest> request(const QUrl& /*file*/, double /*size*/, double /*scale*/,
                                              Completion /*completion*/) override
    {
        return std::make_unique<ThumbnailRequest>();
    }
};

} // namespace

/// The use of many days with a clock that a test drives: what the shelf holds on to must not grow. NOOKLE_ADDS says how
/// many items come and go.
class LongLifeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingGrowsWithUse();

private:
    void addOne(int number);
    void live(int from, int to);

    TemporaryFolder m_folder;
    QRandomGenerator m_random{ 20'261'121 };
    FakeMainQueue m_queue;
    FakeUserDefaults m_defaults;
    LinuxFileReferences m_references{ m_folder.path(), m_folder.path("share"), m_queue };
    FakeTrash m_trash;
    FakeLinkMetadataService m_metadata;
    FakeWorkspace m_workspace;
    FakePasteboard m_pasteboard;
    FakeCompositing m_compositing;
    FakeFileTransfers m_transfers;
    EndlessThumbnails m_thumbnails;
    PanelPinning m_pinning{ m_defaults };
    ShelfStore m_store{
        fileUrl(m_folder.path("data")), environmentWith(m_trash), m_references, m_trash, m_metadata, m_queue
    };
    ShelfView m_view{ ShelfView::Services{
        m_store, m_pinning, m_workspace, m_pasteboard, m_trash, m_references, m_transfers, m_thumbnails, m_compositing,
        m_queue, [](const QMimeData& data) { return std::make_unique<MimeDropPayload>(data); } } };
};

void LongLifeTest::initTestCase()
{
    m_folder.makeFolder("files");
    for (int number = 0; number < fileCount; ++number)
        m_folder.makeFile("files/" + QByteArray::number(number));
    m_view.resize(112, 752);
}

void LongLifeTest::addOne(int number)
{
    switch (number % 4) {
    case 0:
        m_store.addText(QStringLiteral("Text %1").arg(number));
        break;
    case 1:
        m_store.addLink(*LinkUrl::parse(QStringLiteral("https://example.org/%1").arg(number)), QStringLiteral("Title"));
        break;
    case 2:
        m_store.addImage(fileUrl(m_folder.makeFile("image.png")));
        break;
    default:
        m_store.addFiles({ fileUrl(m_folder.path("files/" + QByteArray::number(m_random.bounded(fileCount)))) });
    }
}

void LongLifeTest::live(int from, int to)
{
    for (int number = from; number < to; ++number) {
        addOne(number);
        if (m_store.items().size() > shelfSize)
            m_store.remove(m_store.items().at(m_random.bounded(static_cast<int>(shelfSize))).id);
        if (number % addsPerShowing != 0)
            continue;
        m_store.refreshFiles();
        m_view.show();
        QCoreApplication::processEvents();
        m_view.hide();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_queue.advance(60);
        m_trash.moved.clear();
    }
}

void LongLifeTest::nothingGrowsWithUse()
{
    const int adds = qEnvironmentVariable("NOOKLE_ADDS", QStringLiteral("6000")).toInt();
    live(0, warmUp);
    const long descriptors = openDescriptors();
    const long followed = watches();
    const long resident = residentPages();
    live(warmUp, adds);
    qInfo("resident pages: %ld, then %ld; descriptors: %ld, then %ld; watches: %ld, then %ld", resident,
          residentPages(), descriptors, openDescriptors(), followed, watches());
    QVERIFY(static_cast<double>(residentPages()) <= allowedGrowth * static_cast<double>(resident));
    // One for each file on the shelf, of which there may be some more now.
    QVERIFY(openDescriptors() <= descriptors + shelfSize);
    QVERIFY(watches() <= followed + shelfSize);
    QVERIFY(m_queue.waitingTasks() + m_queue.waitingTimers() <= 1);
}

QTEST_MAIN(LongLifeTest)
#include "LongLifeTest.moc"
