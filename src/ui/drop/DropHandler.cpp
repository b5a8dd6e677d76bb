#include "DropHandler.h"

#include "FileTransfers.h"
#include "FileUrl.h"
#include "SavedFiles.h"
#include "ShelfStore.h"

#include <QList>

#include <filesystem>

namespace nookle {

namespace {

void removeFolderOf(const QUrl& imageCopy)
{
    std::error_code ignored;
    std::filesystem::remove_all(std::filesystem::path(filePath(imageCopy).toStdString()).parent_path(), ignored);
}

} // namespace

/// One drop on its way to the shelf. All its files are added in one call, after everything else.
class DropHandler::Drop {
public:
    explicit Drop(ShelfStore& store)
        : m_store(store)
    {
    }

    // The image comes before the address: what is dragged out of a web page carries both, and is an image.
    void take(const DropItem& item)
    {
        if (item.hasFileURL())
            takeFile(item);
        else if (item.hasImage())
            takeImage(item);
        else if (item.hasURL())
            takeURL(item);
        else if (item.hasText())
            takeText(item);
    }

    void addFiles() { m_store.addFiles(m_files); }

private:
    void takeFile(const DropItem& item)
    {
        if (const auto address = item.loadURL())
            m_files.append(QUrl::fromEncoded(address->toUtf8()));
    }

    void takeImage(const DropItem& item)
    {
        const auto copy = item.loadImageCopy();
        if (!copy)
            return;
        m_store.addImage(*copy);
        removeFolderOf(*copy);
    }

    void takeURL(const DropItem& item)
    {
        const auto address = item.loadURL();
        const auto url = address ? LinkUrl::parse(*address) : std::nullopt;
        if (!url)
            return;
        if (url->scheme() == QLatin1String("file"))
            m_files.append(QUrl::fromEncoded(address->toUtf8()));
        else
            m_store.addLink(*url, item.loadURLTitle());
    }

    void takeText(const DropItem& item)
    {
        if (const auto text = item.loadText())
            m_store.addText(*text);
    }

    ShelfStore& m_store;
    QList<QUrl> m_files;
};

DropHandler::DropHandler(ShelfStore& store, MainQueue& queue, FileTransfers& transfers)
    : m_store(store)
    , m_queue(queue)
    , m_transfers(transfers)
    , m_self(std::make_shared<DropHandler*>(this))
{
}

DropHandler::~DropHandler() = default;

bool DropHandler::handleDrop(DropItems items)
{
    m_queue.post([weakSelf = std::weak_ptr(m_self), shared = std::make_shared<DropItems>(std::move(items))] {
        const auto self = weakSelf.lock();
        if (!self)
            return;
        Drop drop((*self)->m_store);
        for (const auto& item : *shared)
            drop.take(*item);
        drop.addFiles();
    });
    return true;
}

bool DropHandler::handleTransfer(const QByteArray& key, DropItems items)
{
    const auto shared = std::make_shared<DropItems>(std::move(items));
    m_transfers.retrieve(key, [weakSelf = std::weak_ptr(m_self), shared](std::optional<QList<QUrl>> files) {
        const auto self = weakSelf.lock();
        if (!self)
            return;
        if (files && !files->isEmpty())
            (*self)->m_store.addFiles(*files);
        else
            (*self)->handleDrop(std::move(*shared));
    });
    return true;
}

bool DropHandler::handleSaved(const QUrl& folder)
{
    // Those that are done wait here for the next one: none may end while it calls.
    std::erase_if(m_saved, [](const auto& each) { return each->isDone(); });
    m_saved.push_back(
        std::make_unique<SavedFiles>(folder, m_queue, [this](const QList<QUrl>& files) { m_store.addFiles(files); }));
    return true;
}

} // namespace nookle
