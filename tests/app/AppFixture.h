#pragma once

#include "AppDelegate.h"
#include "DesktopBackend.h"
#include "FakeCompositing.h"
#include "FakeDisplays.h"
#include "FakeFileReferences.h"
#include "FakeFileTransfers.h"
#include "FakeFolderWatch.h"
#include "FakeGlobalShortcuts.h"
#include "FakeInputMonitor.h"
#include "FakeLinkMetadataService.h"
#include "FakeLoginItem.h"
#include "FakeMainQueue.h"
#include "FakePanelWindow.h"
#include "FakePasteboard.h"
#include "FakePointer.h"
#include "FakeScreenshotSettings.h"
#include "FakeThumbnailGenerator.h"
#include "FakeTrash.h"
#include "FakeTrayHost.h"
#include "FakeUserDefaults.h"
#include "FakeWorkspace.h"
#include "FileUrl.h"
#include "Notifier.h"
#include "ProgramRequests.h"
#include "ShelfIndex.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <utility>

namespace nookle {

/// What the program asked of its platform, in order.
using Journal = QStringList;

struct JournalingQueue final : FakeMainQueue {
    explicit JournalingQueue(Journal& kept)
        : journal(kept)
    {
    }
    std::unique_ptr<Cancellable> every(double seconds, Work work) override
    {
        journal.append(QStringLiteral("run every %1 s").arg(seconds));
        return FakeMainQueue::every(seconds, std::move(work));
    }
    Journal& journal;
};

struct JournalingDefaults final : FakeUserDefaults {
    explicit JournalingDefaults(Journal& kept)
        : journal(kept)
    {
    }
    [[nodiscard]] bool boolean(const QString& forKey) const override
    {
        journal.append(QStringLiteral("read ") + forKey);
        return FakeUserDefaults::boolean(forKey);
    }
    Journal& journal;
};

struct JournalingTrash final : FakeTrash {
    explicit JournalingTrash(Journal& kept)
        : journal(kept)
    {
    }
    std::optional<Failure> moveToTrash(const QUrl& url) override
    {
        journal.append(QStringLiteral("trash ") + url.fileName());
        return FakeTrash::moveToTrash(url);
    }
    Journal& journal;
};

struct JournalingReferences final : FakeFileReferences {
    explicit JournalingReferences(Journal& kept)
        : journal(kept)
    {
    }
    std::optional<ResolvedFile> resolve(const QByteArray& reference) override
    {
        journal.append(QStringLiteral("resolve files"));
        return FakeFileReferences::resolve(reference);
    }
    Journal& journal;
};

struct JournalingTray final : FakeTrayHost {
    explicit JournalingTray(Journal& kept)
        : journal(kept)
    {
    }
    bool isPresent() const override
    {
        journal.append(QStringLiteral("look for a tray"));
        return FakeTrayHost::isPresent();
    }
    Journal& journal;
};

struct JournalingInput final : FakeInputMonitor {
    explicit JournalingInput(Journal& kept)
        : journal(kept)
    {
    }
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> handler) override
    {
        journal.append(QStringLiteral("watch the mouse"));
        return FakeInputMonitor::monitorLeftPress(std::move(handler));
    }
    Journal& journal;
};

struct JournalingFolders final : FakeFolderWatch {
    explicit JournalingFolders(Journal& kept)
        : journal(kept)
    {
    }
    WatchedFolder watch(const QUrl& folder, std::function<void()> onChanged) override
    {
        journal.append(QStringLiteral("watch the folder of screenshots"));
        return FakeFolderWatch::watch(folder, std::move(onChanged));
    }
    Journal& journal;
};

struct JournalingShortcuts final : FakeGlobalShortcuts {
    explicit JournalingShortcuts(Journal& kept)
        : journal(kept)
    {
    }
    std::unique_ptr<Cancellable> registerShortcut(QKeyCombination keys, const QString& description,
                                                  std::function<void()> pressed) override
    {
        journal.append(QStringLiteral("register a shortcut"));
        return FakeGlobalShortcuts::registerShortcut(keys, description, std::move(pressed));
    }
    Journal& journal;
};

struct JournalingWindow final : FakePanelWindow {
    JournalingWindow(MainQueue& queue, Journal& kept)
        : FakePanelWindow(queue)
        , journal(kept)
    {
    }
    void orderFront() override
    {
        journal.append(QStringLiteral("show the panel"));
        FakePanelWindow::orderFront();
    }
    Journal& journal;
};

struct JournalingRequests final : ProgramRequests {
    explicit JournalingRequests(Journal& kept)
        : journal(kept)
    {
    }
    void start() override { journal.append(QStringLiteral("take requests")); }
    Journal& journal;
};

struct FakeNotifier final : Notifier {
    void notify(const QString& text) override { told.append(text); }
    QStringList told;
};

/// A display server that a test plays.
class FakeDesktop final : public DesktopBackend {
public:
    FakeDesktop(MainQueue& queue, Journal& journal)
        : input(journal)
        , shortcuts(journal)
        , m_queue(queue)
        , m_journal(journal)
    {
    }

    [[nodiscard]] const Displays& displays() const override { return screens; }
    [[nodiscard]] const Pointer& pointer() const override { return mouse; }
    [[nodiscard]] InputMonitor& inputMonitor() override { return input; }
    [[nodiscard]] Compositing& compositing() override { return drawing; }
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override { return shortcuts; }
    [[nodiscard]] TrayHost* embeddingTray() override { return &tray; }
    [[nodiscard]] std::unique_ptr<DropPayload> dropPayload(const QMimeData& /*data*/) override { return nullptr; }
    void offerDrag(std::shared_ptr<const DragPayload> /*payload*/) override {}
    [[nodiscard]] bool canReserveSpace() const override { return hasReservableSpace; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& /*window*/, double /*cornerRadius*/) override
    {
        m_journal.append(QStringLiteral("make the panel"));
        auto made = std::make_unique<JournalingWindow>(m_queue, m_journal);
        window = made.get();
        return made;
    }

    FakeDisplays screens;
    FakePointer mouse;
    JournalingInput input;
    FakeCompositing drawing;
    JournalingShortcuts shortcuts;
    FakeTrayHost tray;
    bool hasReservableSpace = true;
    /// Once it was made.
    FakePanelWindow* window = nullptr;

private:
    MainQueue& m_queue;
    Journal& m_journal;
};

/// The program without its desktop. It is not running at first.
struct AppFixture {
    AppFixture() { screenshotSettings.folders = { screenshotFolder() }; }

    [[nodiscard]] QUrl dataFolder() const { return child(fileUrl(directory.path().toUtf8()), QStringLiteral("data")); }
    [[nodiscard]] QUrl screenshotFolder() const { return fileUrl(directory.path().toUtf8()); }

    void start(AppDelegate::Introduction introduction = AppDelegate::Introduction::none)
    {
        delegate = std::make_unique<AppDelegate>(
            AppDelegate::Platform{
                .desktop = desktop,
                .queue = queue,
                .defaults = defaults,
                .trash = trash,
                .fileReferences = references,
                .thumbnails = thumbnails,
                .linkMetadata = linkMetadata,
                .pasteboard = pasteboard,
                .workspace = workspace,
                .fileTransfers = transfers,
                .notifierTray = tray,
                .notifier = notifier,
                .requests = requests,
                .loginItem = loginItem,
                .folders = folders,
                .screenshotSettings = screenshotSettings,
                .diagnostics = [] { return QStringLiteral("all there is to know"); },
            },
            dataFolder(), [] { return std::optional<Failure>(); }, introduction);
        journal.clear();
        delegate->applicationDidFinishLaunching();
    }

    /// Whether the panel is on its way in, or there.
    [[nodiscard]] bool isShown() const
    {
        const auto& slides = desktop.window->animations;
        return !slides.isEmpty() && slides.last().easing == Easing::out;
    }

    /// The items in the index on disk.
    [[nodiscard]] QList<ShelfItem> saved() const
    {
        QFile file(QFile::decodeName(filePath(child(dataFolder(), QStringLiteral("index.json")))));
        const auto decoded = ShelfIndex::decode(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        const auto* index = std::get_if<ShelfIndex>(&decoded);
        return index ? index->items : QList<ShelfItem>();
    }

    /// A file in the folder of screenshots.
    [[nodiscard]] QUrl makeFile(const QString& name) const
    {
        QFile file(directory.filePath(name));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return fileUrl(file.fileName().toUtf8());
    }

    QTemporaryDir directory;
    Journal journal;
    JournalingQueue queue{ journal };
    JournalingDefaults defaults{ journal };
    JournalingTrash trash{ journal };
    JournalingReferences references{ journal };
    FakeThumbnailGenerator thumbnails;
    FakeLinkMetadataService linkMetadata;
    FakePasteboard pasteboard{ queue };
    FakeWorkspace workspace;
    FakeFileTransfers transfers;
    JournalingTray tray{ journal };
    FakeNotifier notifier;
    JournalingRequests requests{ journal };
    FakeLoginItem loginItem;
    JournalingFolders folders{ journal };
    FakeScreenshotSettings screenshotSettings;
    FakeDesktop desktop{ queue, journal };
    std::unique_ptr<AppDelegate> delegate;
};

} // namespace nookle
