#pragma once

#include "Lifetime.h"
#include "LinkMetadataService.h"
#include "LookupHelper.h"
#include "LookupProtocol.h"

#include <QList>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>

namespace nookle {

class IconLoad;
class ImageConverter;
class MainQueue;

/// Looks up web pages in helper processes, at most `mostAtOnce` at a time; further requests wait. If the address leads
/// to something else than a page, the lookup succeeds, with neither title nor icon. If the server answers with an
/// error, the lookup fails. Destroying this object cancels all lookups; no completion is called after that.
class WebLinkMetadata final : public LinkMetadataService {
public:
    using Confinement = LookupHelper::Confinement;

    inline static constexpr std::size_t mostAtOnce = 4;

    /// `program` is the path of nookle-lookup.
    WebLinkMetadata(QString program, ImageConverter& converter, MainQueue& queue,
                    Confinement confinement = Confinement::sandbox);
    ~WebLinkMetadata() override;
    WebLinkMetadata(const WebLinkMetadata&) = delete;
    WebLinkMetadata& operator=(const WebLinkMetadata&) = delete;

    std::unique_ptr<Cancellable> start(const QUrl& url, Completion completion) override;

    /// The ids of the helper processes, or of the sandboxes around them.
    [[nodiscard]] QList<qint64> processIds() const;

private:
    using Id = std::uint64_t;
    using IconCompletion = std::function<void(std::optional<QByteArray> png)>;

    struct Job {
        LookupRequest request;
        LookupHelper::Completion completion;
        /// Null while the job waits, and for a job that fails without a lookup.
        LookupHelper* helper = nullptr;
    };

    Id add(LookupRequest request, LookupHelper::Completion completion);
    void remove(Id id);
    [[nodiscard]] bool canLookUp(const LookupRequest& request);
    void startNext();
    void finish(Id id, std::optional<LookupReply> reply);
    void tellOfNoStart();
    [[nodiscard]] LinkMetadata metadata(const LookupReply& page);
    void loadIcon(const LookupReply& page, IconCompletion completion);

    QString m_program;
    ImageConverter& m_converter;
    MainQueue& m_queue;
    std::array<std::unique_ptr<LookupHelper>, mostAtOnce> m_helpers;
    /// In the order of the requests.
    std::map<Id, Job> m_waiting;
    std::map<Id, Job> m_running;
    std::map<Id, std::unique_ptr<IconLoad>> m_icons;
    Id m_lastId = 0;
    /// The failure to start a helper is logged only once, although each link tries again.
    bool m_hasToldOfNoStart = false;
    Lifetime m_lifetime;
};

} // namespace nookle
