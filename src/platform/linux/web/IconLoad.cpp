#include "IconLoad.h"

#include "ContentSniffing.h"
#include "DataUrl.h"
#include "ImageConverter.h"
#include "MainQueue.h"

#include <utility>

namespace nookle {

IconLoad::IconLoad(const Services& services, QList<QUrl> places, WebReach from)
    : m_services(services)
    , m_places(std::move(places))
    , m_from(from)
    , m_self(std::make_shared<IconLoad*>(this))
{
}

IconLoad::~IconLoad() = default;

void IconLoad::start()
{
    m_limit = m_services.queue.after(timeLimit, [this] { finish(std::nullopt); });
    m_services.queue.post([weak = std::weak_ptr(m_self)] {
        if (const auto self = weak.lock())
            (*self)->tryNextPlace();
    });
}

void IconLoad::tryNextPlace()
{
    while (!m_places.isEmpty()) {
        const QUrl place = m_places.takeFirst();
        if (place.scheme() != QLatin1String("data"))
            return fetch(place);
        const QByteArray bytes = bytesOfDataUrl(place).value_or(QByteArray());
        if (bytes.size() <= maximumBytes && looksLikeIcon(bytes))
            return convert(bytes);
    }
    finish(std::nullopt);
}

void IconLoad::fetch(const QUrl& url)
{
    m_bytes.clear();
    m_transfer = std::make_unique<WebTransfer>(m_services.routes, m_services.queue,
                                               WebTransfer::Wish{ url, m_from, "image/*,*/*;q=0.1", maximumBytes });
    m_transfer->onResponse = [](const WebResponse&) { return true; };
    m_transfer->onData = [this](const QByteArray& bytes) {
        m_bytes.append(bytes);
        return true;
    };
    m_transfer->onEnd = [this](WebTransfer::End end) { takeEnd(end); };
    m_transfer->start();
}

void IconLoad::takeEnd(WebTransfer::End end)
{
    m_transfer.reset();
    const QByteArray bytes = std::exchange(m_bytes, {});
    if (end == WebTransfer::End::complete && looksLikeIcon(bytes))
        convert(bytes);
    else
        tryNextPlace();
}

void IconLoad::convert(const QByteArray& bytes)
{
    m_conversion = m_services.converter.convertToPng(
        bytes, maximumSide, [this](std::optional<QByteArray> png) { takePng(std::move(png)); });
}

void IconLoad::takePng(std::optional<QByteArray> png)
{
    m_conversion.reset();
    if (png)
        finish(std::move(png));
    else
        tryNextPlace();
}

void IconLoad::finish(std::optional<QByteArray> png)
{
    const auto done = std::exchange(onEnd, nullptr);
    if (done)
        done(std::move(png));
}

} // namespace nookle
