#pragma once

#include "LinkMetadataService.h"

namespace nookle {

class MainQueue;

/// Stands in where no pages are looked up: nothing leaves the computer, every lookup fails, and so links keep their
/// address as their title and get no icon. Main thread only.
class NoLinkMetadata final : public LinkMetadataService {
public:
    explicit NoLinkMetadata(MainQueue& queue);

    std::unique_ptr<LinkMetadataRequest> start(const QUrl& url, Completion completion) override;

private:
    MainQueue& m_queue;
};

} // namespace nookle
