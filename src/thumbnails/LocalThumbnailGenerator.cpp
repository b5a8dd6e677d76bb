#include "LocalThumbnailGenerator.h"

#include "FilePlaces.h"
#include "FileUrl.h"
#include "MainQueue.h"
#include "Mounts.h"

#include <utility>

namespace nookle {

LocalThumbnailGenerator::LocalThumbnailGenerator(ThumbnailGenerator& thumbnails, std::shared_ptr<Mounts> mounts,
                                                 MainQueue& queue)
    : m_thumbnails(thumbnails)
    , m_mounts(std::move(mounts))
    , m_queue(queue)
{
}

std::unique_ptr<Cancellable> LocalThumbnailGenerator::request(const QUrl& file, double size, double scale,
                                                              Completion completion)
{
    const QByteArray path = standardizedPath(file);
    const bool mayLook = path.isEmpty() || FilePlaces(m_mounts->table()).mayLookAt(path, FilePlaces::Links::follow);
    if (!mayLook)
        return m_queue.after(0, [completion = std::move(completion)] { completion(std::nullopt); });
    return m_thumbnails.request(file, size, scale, std::move(completion));
}

} // namespace nookle
