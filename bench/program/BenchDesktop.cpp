#include "BenchDesktop.h"

#include "SampleShelf.h"

namespace nookle::bench {

using namespace e2e;

std::unique_ptr<PrivateDesktop> makeDesktop()
{
    auto desktop = PrivateDesktop::tryCreate({});
    // This program has libraries of its own: what it shared with another one would count half there.
    if (desktop)
        desktop->setVariable(QStringLiteral("LD_LIBRARY_PATH"), QString());
    return desktop;
}

bool writeShelf(const PrivateDesktop& desktop, int count)
{
    return writeSampleShelf(desktop.home(QStringLiteral("data")), desktop.home(QStringLiteral("files")), count);
}

} // namespace nookle::bench
