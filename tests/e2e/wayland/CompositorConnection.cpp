#include "CompositorConnection.h"

#include <cstring>

namespace nookle::e2e {

namespace {

struct Search {
    const char* interface;
    std::uint32_t name = 0;
};

void find(void* search, wl_registry* /*registry*/, std::uint32_t name, const char* interface, std::uint32_t /*version*/)
{
    auto& wanted = *static_cast<Search*>(search);
    if (std::strcmp(interface, wanted.interface) == 0)
        wanted.name = name;
}

void ignoreRemoval(void* /*search*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}

constexpr wl_registry_listener listener{ &find, &ignoreRemoval };

} // namespace

CompositorConnection::CompositorConnection(wl_display* display)
    : m_display(display)
{
}

CompositorConnection::~CompositorConnection()
{
    wl_display_disconnect(m_display);
}

std::unique_ptr<CompositorConnection> CompositorConnection::tryConnect(const QByteArray& socketPath)
{
    wl_display* display = wl_display_connect(socketPath.constData());
    if (!display)
        return nullptr;
    return std::unique_ptr<CompositorConnection>(new CompositorConnection(display));
}

wl_proxy* CompositorConnection::bind(const wl_interface& interface, std::uint32_t version)
{
    Search search{ interface.name };
    wl_registry* registry = wl_display_get_registry(m_display);
    wl_registry_add_listener(registry, &listener, &search);
    wl_display_roundtrip(m_display);
    void* bound = search.name == 0 ? nullptr : wl_registry_bind(registry, search.name, &interface, version);
    wl_registry_destroy(registry);
    return static_cast<wl_proxy*>(bound);
}

void CompositorConnection::flush()
{
    wl_display_roundtrip(m_display);
}

} // namespace nookle::e2e
