#pragma once

#include "FakeImageConverter.h"
#include "FakeMainQueue.h"
#include "WebLinkMetadata.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace nookle {

/// What became of one lookup.
struct Lookup {
    std::unique_ptr<Cancellable> request;
    std::optional<LinkMetadata> metadata;
    int calls = 0;

    [[nodiscard]] bool isDone() const { return calls > 0; }
    [[nodiscard]] bool hasFailed() const { return calls == 1 && !metadata; }
    [[nodiscard]] QString title() const
    {
        if (!metadata)
            return QStringLiteral("(failed)");
        return metadata->title.value_or(QStringLiteral("(none)"));
    }
};

/// What became of one icon.
struct LoadedIcon {
    std::optional<QByteArray> png;
    int calls = 0;
};

/// The service with the real helper, in virtual time but with real connections: what is posted runs while a test waits.
struct WebFixture {
    WebFixture()
    {
        QObject::connect(&pump, &QTimer::timeout, &pump, [this] { queue.runPosted(); });
        pump.start(1);
    }

    /// The lookup of `url`, which must stay where it is until it has ended.
    [[nodiscard]] std::unique_ptr<Lookup> lookUp(const QUrl& url)
    {
        auto lookup = std::make_unique<Lookup>();
        lookup->request = service->start(url, [state = lookup.get()](std::optional<LinkMetadata> metadata) {
            ++state->calls;
            state->metadata = std::move(metadata);
        });
        return lookup;
    }

    [[nodiscard]] static std::shared_ptr<LoadedIcon> loadIcon(const Lookup& lookup)
    {
        auto icon = std::make_shared<LoadedIcon>();
        lookup.metadata->loadIcon([icon](std::optional<QByteArray> png) {
            ++icon->calls;
            icon->png = std::move(png);
        });
        return icon;
    }

    /// Uses another program than the one that looks up what is on this computer.
    void useHelper(const QString& program,
                   WebLinkMetadata::Confinement confinement = WebLinkMetadata::Confinement::none)
    {
        service = std::make_unique<WebLinkMetadata>(program, converter, queue, confinement);
    }

    FakeMainQueue queue;
    FakeImageConverter converter;
    std::unique_ptr<WebLinkMetadata> service = std::make_unique<WebLinkMetadata>(
        QStringLiteral(NOOKLE_LOOKUP), converter, queue, WebLinkMetadata::Confinement::none);
    QTimer pump;
};

} // namespace nookle
