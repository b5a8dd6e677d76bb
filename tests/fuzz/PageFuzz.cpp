#include "Page.h"
#include "PageIcons.h"
#include "PageTitle.h"

#include <array>
#include <cstddef>
#include <cstdint>

using namespace nookle;

namespace {

constexpr std::array contentTypes{ "text/html",
                                   "text/html; charset=utf-8",
                                   "application/xhtml+xml",
                                   "text/html; charset=shift_jis",
                                   "text/html; charset=windows-1251",
                                   "text/html; charset=utf-16le",
                                   "text/html; charset=iso-2022-jp",
                                   "text/html; charset=gb18030" };
constexpr std::size_t headerSize = 5;

[[noreturn]] void fail()
{
    __builtin_trap();
}

void check(const Page& page)
{
    if (page.icons.size() > Page::mostIcons)
        fail();
    if (page.title && (page.title->size() > maximumTitleLength || presentableTitle(*page.title) != page.title))
        fail();
    for (const QUrl& place : iconPlaces(QUrl(QStringLiteral("https://a.test/b/c")), page.baseHref, page.icons)) {
        if (place.scheme() != QLatin1String("data") && place.scheme() != QLatin1String("http")
            && place.scheme() != QLatin1String("https"))
            fail();
    }
}

} // namespace

/// The first byte chooses the type, the next four mean nothing; the rest is the page.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < headerSize)
        return 0;
    const QByteArray type = contentTypes[data[0] % contentTypes.size()];
    const auto* const bytes = reinterpret_cast<const char*>(data) + headerSize;
    check(readPage(QByteArray(bytes, qsizetype(size - headerSize)), type));
    return 0;
}
