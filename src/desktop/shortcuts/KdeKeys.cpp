#include "KdeKeys.h"

#include <QDBusMetaType>

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] bool isEmpty(const KdeKeys& keys)
{
    return std::all_of(keys.combinations.begin(), keys.combinations.end(), [](int each) { return each == 0; });
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const KdeKeys& keys)
{
    argument.beginStructure();
    argument << keys.combinations;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, KdeKeys& keys)
{
    argument.beginStructure();
    argument >> keys.combinations;
    argument.endStructure();
    return argument;
}

void registerKdeKeysTypes()
{
    qDBusRegisterMetaType<KdeKeys>();
    qDBusRegisterMetaType<KdeKeysList>();
}

KdeKeysList kdeKeys(QKeyCombination keys)
{
    return { { { keys.toCombined(), 0, 0, 0 } } };
}

KdeKeysList kdeKeys(const QVariant& received)
{
    const auto argument = received.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a(ai)"))
        return {};
    auto keys = qdbus_cast<KdeKeysList>(argument);
    keys.erase(std::remove_if(keys.begin(), keys.end(), isEmpty), keys.end());
    return keys;
}

} // namespace nookle
