#include "DraggedImage.h"

#include "FileReferences.h"
#include "FileUrl.h"
#include "Log.h"
#include "ShelfStore.h"
#include "Trash.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

namespace nookle {

namespace {

/// In seconds, from one look to the next: at first the program moves it, and later its user may still choose to.
inline constexpr std::array pauses{ 0.3, 0.7, 2.0, 3.0, 6.0, 12.0, 18.0, 18.0 };

[[nodiscard]] std::filesystem::file_type typeOf(const QUrl& file)
{
    std::error_code ignored;
    return std::filesystem::symlink_status(filePath(file).toStdString(), ignored).type();
}

} // namespace

DraggedImage::DraggedImage(ShelfStore& store, FileReferences& references, const Trash& trash, MainQueue& queue)
    : m_store(store)
    , m_references(references)
    , m_trash(trash)
    , m_queue(queue)
{
}

DraggedImage::~DraggedImage()
{
    end();
}

void DraggedImage::begin(const ShelfItem& item)
{
    end();
    const auto url = m_store.localURL(item);
    const bool isImage = std::holds_alternative<ImageContent>(item.content);
    if (!isImage || !url || typeOf(*url) != std::filesystem::file_type::regular)
        return;
    m_item = item;
    m_file.setFileName(QFile::decodeName(filePath(*url)));
    if (m_file.open(QIODevice::ReadOnly))
        m_reference = m_references.make(*url).value_or(QByteArray());
}

void DraggedImage::keepLooking(std::function<void()> onTrashed)
{
    if (!m_file.isOpen())
        return;
    m_onTrashed = std::move(onTrashed);
    lookAfter(0);
}

void DraggedImage::end()
{
    m_nextLook.reset();
    m_onTrashed = nullptr;
    m_file.close();
    if (const QByteArray reference = std::exchange(m_reference, {}); !reference.isEmpty())
        m_references.release(reference);
}

void DraggedImage::lookAfter(std::size_t pause)
{
    if (pause == pauses.size()) {
        end();
        return;
    }
    m_nextLook = m_queue.after(pauses[pause], [this, pause] {
        if (look())
            end();
        else
            lookAfter(pause + 1);
    });
}

bool DraggedImage::look()
{
    const auto& items = m_store.items();
    const auto isThis = [this](const ShelfItem& item) { return item.id == m_item.id; };
    const auto url = m_store.localURL(m_item);
    if (!url || std::none_of(items.begin(), items.end(), isThis))
        return true;
    if (typeOf(*url) != std::filesystem::file_type::not_found)
        return false;
    if (isInTrash()) {
        const auto onTrashed = std::exchange(m_onTrashed, nullptr);
        onTrashed();
    } else {
        copyBack();
    }
    return true;
}

bool DraggedImage::isInTrash() const
{
    const auto found = m_reference.isEmpty() ? std::nullopt : m_references.resolve(m_reference);
    return found && m_trash.contains(found->url);
}

void DraggedImage::copyBack()
{
    const QByteArray bytes = m_file.readAll();
    if (m_file.error() == QFileDevice::NoError)
        m_store.restoreImage(m_item.id, bytes);
    else
        logLine(QStringLiteral("could not restore image: ") + m_file.errorString());
}

} // namespace nookle
