#include "HeldResources.h"
#include "PrivateDesktop.h"
#include "Waiting.h"

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
#include "PanelBackground.h"
#include "PanelContentView.h"
#include "PanelController.h"
#include "ShelfStore.h"
#include "ShelfView.h"
#include "TemporaryFolder.h"
#include "ThumbnailGenerator.h"
#include "X11Backend.h"

#include <QApplication>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <memory>

using namespace nookle;

namespace {

constexpr int fileCount = 200;
constexpr qsizetype shelfSize = 50;
constexpr int addsPerShowing = 10;
/// Showings that do not wait until the panel has come or gone, for each that does.
constexpr int hastyShowings = 100;
/// Until everything that is made once has been made.
constexpr int warmUp = 1000;

[[nodiscard]] ShelfStore::Environment environmentWith(FakeTrash& trash)
{
    ShelfStore::Environment environment;
    environment.moveToTrash = [&trash](const QUrl& file) { return trash.moveToTrash(file); };
    environment.fetchesLinkMetadata = false;
    return environment;
}

/// ThumbnailGenerator that take for ever.
class EndlessThumbnails final : public ThumbnailGenerator {
public:
    std::unique_ptr<Cancellable> request(const QUrl& /*file*/, double /*size*/, double /*scale*/,
                                         Completion /*completion*/) override
    {
        return std::make_unique<Cancellable>([] {});
    }
};

} // namespace

/// The use of many days with a clock that a test drives, in a panel on a real X server: what the shelf holds on to must
/// not grow. NOOKLE_ADDS says how many items come and go.
class LongLifeTest : public QObject {
    Q_OBJECT

public:
    explicit LongLifeTest(QByteArray display)
        : m_display(std::move(display))
    {
    }

private Q_SLOTS:
    void initTestCase();
    void nothingGrowsWithUse();

private:
    void addOne(int number);
    void live(int from, int to);
    void showAndHide(bool isHasty);
    [[nodiscard]] HeldResources held() const
    {
        return HeldResources::of(QCoreApplication::applicationPid(), m_display);
    }
    [[nodiscard]] long filesOnShelf() const
    {
        return std::count_if(m_store.items().begin(), m_store.items().end(),
                             [](const ShelfItem& item) { return std::holds_alternative<FileContent>(item.content); });
    }

    QByteArray m_display;
    TemporaryFolder m_folder;
    QRandomGenerator m_random{ 20'261'121 };
    FakeMainQueue m_queue;
    FakeUserDefaults m_defaults;
    LinuxFileReferences m_references{ m_folder.path(), m_folder.path("share"), m_queue };
    FakeTrash m_trash;
    FakeLinkMetadataService m_metadata;
    FakeWorkspace m_workspace;
    FakePasteboard m_pasteboard{ m_queue };
    FakeCompositing m_compositing;
    FakeFileTransfers m_transfers;
    EndlessThumbnails m_thumbnails;
    ShelfStore m_store{
        fileUrl(m_folder.path("data")), environmentWith(m_trash), m_references, m_trash, m_metadata, m_queue
    };
    X11Backend m_backend;
    PanelContentView m_content;
    std::unique_ptr<PanelWindow> m_window = m_backend.makePanelWindow(m_content.panelWindow(), panelCornerRadius);
    PanelController m_controller{ m_store, m_defaults, *m_window, m_backend.pointer(), m_backend.displays(), m_queue };
};

void LongLifeTest::initTestCase()
{
    m_folder.makeFolder("files");
    for (int number = 0; number < fileCount; ++number)
        m_folder.makeFile("files/" + QByteArray::number(number));
    auto view = std::make_unique<ShelfView>(ShelfView::Services{
        m_store, m_controller.pinning(), m_workspace, m_pasteboard, m_trash, m_references, m_transfers, m_thumbnails,
        m_compositing, m_queue, [](const QMimeData& data) { return std::make_unique<MimeDropPayload>(data); } });
    m_content.setContent(view.release());
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
        showAndHide(number % (addsPerShowing * hastyShowings) != 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_queue.advance(60);
        m_trash.moved.clear();
    }
}

// A hasty showing turns round where the panel is on its way.
void LongLifeTest::showAndHide(bool isHasty)
{
    const double rightEdge = m_backend.displays().frames().front().right();
    const auto isParked = [this] { return m_content.panelWindow().width() < m_window->frame().width(); };
    m_controller.show();
    QVERIFY(e2e::waitFor([&] { return m_content.isVisible() && !isParked(); }));
    QVERIFY(isHasty || e2e::waitFor([&] { return m_window->frame().right() == rightEdge; }));
    m_controller.hide();
    QCoreApplication::processEvents();
    QVERIFY(isHasty || e2e::waitFor(isParked));
}

void LongLifeTest::nothingGrowsWithUse()
{
    const int adds = qEnvironmentVariable("NOOKLE_ADDS", QStringLiteral("6000")).toInt();
    live(0, warmUp);
    const HeldResources before = held();
    const long filesBefore = filesOnShelf();
    live(warmUp, adds);
    const HeldResources after = held();
    qInfo() << "after the first:" << before << "\nat the end:" << after;
    QVERIFY(!after.hasMoreMemoryThan(before));
    // Each file on the shelf is followed by one of each.
    QCOMPARE(after.descriptors - filesOnShelf(), before.descriptors - filesBefore);
    QCOMPARE(after.watches - filesOnShelf(), before.watches - filesBefore);
    QVERIFY(before.xResources > 0);
    QVERIFY(after.xResources <= before.xResources);
    QVERIFY(m_queue.waitingTasks() + m_queue.waitingTimers() <= 1);
}

int main(int argc, char* argv[])
{
    const auto desktop = e2e::PrivateDesktop::tryCreate({ QSize(1280, 800), QStringLiteral("openbox") });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    LongLifeTest test(desktop->display());
    return QTest::qExec(&test, argc, argv);
}
#include "LongLifeTest.moc"
