#include "LaunchAtLogin.h"

#include "LoginItem.h"

namespace nookle {

std::optional<Failure> LaunchAtLogin::setEnabled(LoginItem& item, bool enabled)
{
    return enabled ? item.registerItem() : item.unregisterItem();
}

} // namespace nookle
