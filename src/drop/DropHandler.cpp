#include "DropHandler.h"

#include "FileTransfers.h"
#include "FileUrl.h"
#include "SavedFiles.h"
#include "ShelfStore.h"

#include <QCoreApplication>
#include <QList>
#include <QSet>

#include <filesystem>

namespace nookle {

namespace {

void removeFolderOf(const QUrl& imageCopy)
{
    std::error_code ignored;
    std::filesystem::remove_all(std::filesystem::path(filePath(imageCopy).toStdString()).parent_path(), ignored);
}

/// The files, each once, in the order of their first places: the store makes an item of every address that it is given.
[[nodiscard]] QList<QUrl> eachOnce(const QList<QUrl>& files)
{
    QSet<QByteArray> seen;
    seen.reserve(files.size());
    QList<QUrl> found;
    found.reserve(files.size());
    for (const QUrl& file : files) {
        const qsizetype before = seen.size();
        seen.insert(standardizedPath(file));
        if (seen.size() > before)
            found.append(file);
    }
    return found;
}

} // namespace

/// One drop on its way to the shelf. All its files are added in one call, after everything else.
class DropHandler::Drop {
public:
    explicit Drop(ShelfStore& store)
        : m_store(store)
    {
    }

    // The image has priority over the address: an image that is dragged out of a web page has both.
    void take(const DropItem& item)
    {
        if (item.hasFileURL())
            m_files.append(QUrl::fromEncoded(item.address->url.toUtf8()));
        else if (item.image)
            takeImage(*item.image);
        else if (item.address)
            takeLink(*item.address);
        else if (item.text)
            m_store.addText(*item.text);
    }

    void addFiles() { m_store.addFiles(eachOnce(m_files)); }

private:
    void takeImage(const DroppedImage& image)
    {
        const auto copy = writeImageCopy(image);
        if (!copy) {
            m_store.imageNotAdded(
                QCoreApplication::translate("nookle::DropHandler", "it could not be saved among the temporary files"));
            return;
        }
        m_store.addImage(*copy);
        removeFolderOf(*copy);
    }

    void takeLink(const DroppedAddress& address)
    {
        if (const auto url = LinkUrl::parse(address.url))
            m_store.addLink(*url, address.title);
    }

    ShelfStore& m_store;
    QList<QUrl> m_files;
};

DropHandler::DropHandler(ShelfStore& store, MainQueue& queue, FileTransfers& transfers)
    : m_store(store)
    , m_queue(queue)
    , m_transfers(transfers)
{
}

DropHandler::~DropHandler() = default;

bool DropHandler::handle(CapturedDrop drop)
{
    if (drop.savedInto)
        return handleSaved(*drop.savedInto);
    if (!drop.transferKey.isEmpty())
        return handleTransfer(drop.transferKey, std::move(drop.items));
    return handleDrop(std::move(drop.items));
}

void DropHandler::handlePaste(CapturedDrop clipboard)
{
    if (!clipboard.transferKey.isEmpty()) {
        handle(std::move(clipboard));
        return;
    }
    m_queue.post(m_lifetime.guarded([this, shared = std::make_shared<DropItems>(std::move(clipboard.items))] {
        bool hasAnswered = false;
        QObject context;
        const auto answered = [&hasAnswered] { hasAnswered = true; };
        QObject::connect(&m_store, &ShelfStore::itemsChanged, &context, answered);
        QObject::connect(&m_store, &ShelfStore::additionFailed, &context, answered);
        add(*shared);
        if (!hasAnswered)
            Q_EMIT m_store.additionFailed(
                QCoreApplication::translate("nookle::DropHandler", "Nothing found that can be added to the shelf."));
    }));
}

bool DropHandler::handleDrop(DropItems items)
{
    m_queue.post(m_lifetime.guarded([this, shared = std::make_shared<DropItems>(std::move(items))] { add(*shared); }));
    return true;
}

void DropHandler::add(const DropItems& items)
{
    m_store.changeTogether([&] {
        Drop drop(m_store);
        for (const auto& item : items)
            drop.take(item);
        drop.addFiles();
    });
}

bool DropHandler::handleTransfer(const QByteArray& key, DropItems items)
{
    const auto shared = std::make_shared<DropItems>(std::move(items));
    m_transfers.retrieve(key, m_lifetime.guarded([this, shared](const std::optional<QList<QUrl>>& files) {
        if (files && !files->isEmpty())
            m_store.addFiles(eachOnce(*files));
        else
            handleDrop(std::move(*shared));
    }));
    return true;
}

bool DropHandler::handleSaved(const QUrl& folder)
{
    // Finished objects are removed only here, because they must not be destroyed during their own callback.
    std::erase_if(m_saved, [](const auto& each) { return each->isDone(); });
    m_saved.push_back(std::make_unique<SavedFiles>(folder, m_queue, [this](const QList<QUrl>& files) {
        if (files.isEmpty())
            Q_EMIT m_store.additionFailed(QCoreApplication::translate(
                "nookle::DropHandler", "The other program has saved nothing that can be added to the shelf."));
        else
            m_store.addFiles(files);
    }));
    return true;
}

} // namespace nookle
