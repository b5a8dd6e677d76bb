#include "WaylandGlobals.h"

#include <memory>

#include <wayland-client.h>

namespace nookle {

namespace {

struct Disconnect {
    void operator()(wl_display* display) const { wl_display_disconnect(display); }
};

struct DestroyRegistry {
    void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
};

void addInterface(void* names, wl_registry* /*registry*/, std::uint32_t /*name*/, const char* interface,
                  std::uint32_t /*version*/)
{
    static_cast<QByteArrayList*>(names)->append(QByteArray(interface));
}

void ignoreRemoval(void* /*names*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}

constexpr wl_registry_listener listener{ &addInterface, &ignoreRemoval };

[[nodiscard]] QByteArrayList readInterfaces()
{
    const std::unique_ptr<wl_display, Disconnect> display(wl_display_connect(nullptr));
    if (!display)
        return {};
    QByteArrayList names;
    const std::unique_ptr<wl_registry, DestroyRegistry> registry(wl_display_get_registry(display.get()));
    wl_registry_add_listener(registry.get(), &listener, &names);
    wl_display_roundtrip(display.get());
    return names;
}

} // namespace

QByteArrayList waylandInterfaces()
{
    static const QByteArrayList interfaces = readInterfaces();
    return interfaces;
}

} // namespace nookle
