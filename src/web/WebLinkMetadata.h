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

/// Has pages looked up by helper processes: a few at once, the rest in their turn. An address that is no page is looked
/// up successfully, and has neither title nor icon; one whose server answers with an error is not. When this object
/// goes, what it has under way is dropped, and nobody is called back.
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

    /// The processes that look pages up, or that confine those that do.
    [[nodiscard]] QList<qint64> processIds() const;

private:
    using Id = std::uint64_t;
    using IconCompletion = std::function<void(std::optional<QByteArray> png)>;

    struct Job {
        LookupRequest request;
        LookupHelper::Completion completion;
        /// None before its turn, and when there is nothing to look up.
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
    /// In the order in which they came.
    std::map<Id, Job> m_waiting;
    std::map<Id, Job> m_running;
    std::map<Id, std::unique_ptr<IconLoad>> m_icons;
    Id m_lastId = 0;
    /// Each link tries again, but the log is told once.
    bool m_hasToldOfNoStart = false;
    Lifetime m_lifetime;
};

} // namespace nookle
