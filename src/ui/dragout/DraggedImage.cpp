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

/// The pauses between checks, in seconds; the last one is repeated. Short ones come first, because most programs move
/// the file at once. A user may still decide to move it later, in a menu or dialog that stays open.
inline constexpr std::array pauses{ 0.3, 0.7, 2.0, 3.0, 6.0, 12.0, 18.0 };
inline constexpr std::size_t mostLooks = 38;

[[nodiscard]] std::filesystem::file_type typeOf(const QUrl& file)
{
    std::error_code ignored;
    return std::filesystem::symlink_status(filePath(file).toStdString(), ignored).type();
}

} // namespace

DraggedImage::DraggedImage(Services services, const ShelfItem& item)
    : m_services(services)
    , m_item(item)
{
    hold();
}

DraggedImage::~DraggedImage()
{
    end();
}

void DraggedImage::hold()
{
    const auto url = m_services.store.localURL(m_item);
    const bool isImage = std::holds_alternative<ImageContent>(m_item.content);
    if (!isImage || !url || typeOf(*url) != std::filesystem::file_type::regular)
        return;
    m_file.setFileName(QFile::decodeName(filePath(*url)));
    if (!m_file.open(QIODevice::ReadOnly))
        return;
    m_use = m_services.store.keepFromExpiring(m_item.id);
    m_reference = m_services.references.make(*url).value_or(QByteArray());
}

void DraggedImage::keepLooking(std::function<void()> onTrashed)
{
    // An earlier watch may have copied the file back during this drag and closed it.
    if (!m_file.isOpen())
        hold();
    if (!m_file.isOpen())
        return;
    m_onTrashed = std::move(onTrashed);
    lookAfter(0);
}

void DraggedImage::lookNow()
{
    if (m_onTrashed && look())
        end();
}

void DraggedImage::end()
{
    m_nextLook.reset();
    m_onTrashed = nullptr;
    m_file.close();
    m_use.reset();
    if (const QByteArray reference = std::exchange(m_reference, {}); !reference.isEmpty())
        m_services.references.release(reference);
}

void DraggedImage::lookAfter(std::size_t pause)
{
    if (pause == mostLooks) {
        end();
        return;
    }
    m_nextLook = m_services.queue.after(pauses[std::min(pause, pauses.size() - 1)], [this, pause] {
        if (look())
            end();
        else
            lookAfter(pause + 1);
    });
}

bool DraggedImage::look()
{
    const auto& items = m_services.store.items();
    const auto isThis = [this](const ShelfItem& item) { return item.id == m_item.id; };
    const auto url = m_services.store.localURL(m_item);
    if (!url || std::none_of(items.begin(), items.end(), isThis))
        return true;
    if (typeOf(*url) != std::filesystem::file_type::not_found)
        return false;
    if (isInTrash()) {
        const auto onTrashed = std::exchange(m_onTrashed, nullptr);
        onTrashed();
        return true;
    }
    const std::optional<Failure> failure = copyBack();
    if (failure && !std::exchange(m_hasToldFailure, true))
        logLine(QStringLiteral("could not restore image: ") + failure->description);
    return !failure;
}

bool DraggedImage::isInTrash() const
{
    const auto found = m_reference.isEmpty() ? std::nullopt : m_services.references.resolve(m_reference);
    return found && m_services.trash.contains(found->url);
}

std::optional<Failure> DraggedImage::copyBack()
{
    m_file.unsetError();
    m_file.seek(0);
    const QByteArray bytes = m_file.readAll();
    if (m_file.error() != QFileDevice::NoError)
        return Failure{ m_file.errorString() };
    return m_services.store.restoreImage(m_item.id, bytes);
}

} // namespace nookle
