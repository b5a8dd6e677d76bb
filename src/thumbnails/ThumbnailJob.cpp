#include "ThumbnailJob.h"

#include "FileType.h"
#include "ThumbnailCache.h"

#include <utility>

namespace nookle {

ThumbnailJob::ThumbnailJob(Tools tools, QByteArray path, int side)
    : m_tools(tools)
    , m_path(std::move(path))
    , m_uri(ThumbnailCache::uri(m_path))
    , m_side(side)
{
}

void ThumbnailJob::decode(Completion completion)
{
    m_completion = std::move(completion);
    std::vector<DecodeAttempts::Attempt> attempts;
    if (auto file = RegularFile::open(m_path, RegularFile::Links::follow)) {
        m_isReadable = true;
        m_modificationTime = file->modificationTime;
        m_fileSize = file->size;
        attempts = savedThumbnails();
        attempts.push_back({ request(DecodeRequest::Purpose::thumbnail), std::move(*file) });
    }
    tryAll(std::move(attempts), [this](std::optional<Picture> picture) { finish(std::move(picture)); });
}

bool ThumbnailJob::canAskMakers() const
{
    return m_isReadable && m_fileSize > 0 && !m_tools.makers.empty() && m_tools.cache.takes(m_path);
}

void ThumbnailJob::askMakers(Completion completion)
{
    m_completion = std::move(completion);
    m_wanted = { m_path, m_uri, fileType(m_path), ThumbnailCache::savedSide(m_side) };
    askNextMaker();
}

std::vector<DecodeAttempts::Attempt> ThumbnailJob::savedThumbnails() const
{
    std::vector<DecodeAttempts::Attempt> attempts;
    for (RegularFile& file : m_tools.cache.open(m_uri, m_side))
        attempts.push_back({ request(DecodeRequest::Purpose::savedThumbnail), std::move(file) });
    return attempts;
}

DecodeRequest ThumbnailJob::request(DecodeRequest::Purpose purpose) const
{
    DecodeRequest request;
    request.purpose = purpose;
    request.side = m_side;
    request.uri = m_uri;
    request.modificationTime = m_modificationTime;
    request.fileSize = m_fileSize;
    if (purpose == DecodeRequest::Purpose::thumbnail && m_tools.cache.takes(m_path))
        request.savedSide = ThumbnailCache::savedSide(m_side);
    return request;
}

void ThumbnailJob::tryAll(std::vector<DecodeAttempts::Attempt> attempts,
                          std::function<void(std::optional<Picture>)> completion)
{
    m_attempts =
        std::make_unique<DecodeAttempts>(m_tools.decoder, std::move(attempts),
                                         [this, completion = std::move(completion)](
                                             const std::optional<DecodeReply>& reply, const DecodeRequest& request) {
                                             if (!reply) {
                                                 completion(std::nullopt);
                                                 return;
                                             }
                                             if (!reply->png.isEmpty())
                                                 m_tools.cache.save(request.uri, request.savedSide, reply->png);
                                             completion(Picture{ reply->width, reply->height, reply->pixels });
                                         });
}

void ThumbnailJob::askNextMaker()
{
    m_making.reset();
    while (m_nextMaker < m_tools.makers.size()) {
        ThumbnailMaker& maker = *m_tools.makers[m_nextMaker++];
        m_making =
            maker.make(m_wanted, [this](std::optional<ThumbnailMaker::Made> made) { takeMade(std::move(made)); });
        if (m_making)
            return;
    }
    tryAll({}, [this](const std::optional<Picture>& /*none*/) { finish(std::nullopt); });
}

void ThumbnailJob::takeMade(std::optional<ThumbnailMaker::Made> made)
{
    if (!made) {
        askNextMaker();
        return;
    }
    std::vector<DecodeAttempts::Attempt> attempts;
    if (made->image)
        attempts.push_back({ request(DecodeRequest::Purpose::thumbnail), std::move(*made->image) });
    else
        attempts = savedThumbnails();
    tryAll(std::move(attempts), [this](std::optional<Picture> picture) {
        if (picture)
            finish(std::move(picture));
        else
            askNextMaker();
    });
}

void ThumbnailJob::finish(std::optional<Picture> picture)
{
    const Completion completion = std::exchange(m_completion, nullptr);
    completion(std::move(picture));
}

} // namespace nookle
