#include "PageHead.h"
#include "PageIcons.h"
#include "PageTitle.h"

#include <algorithm>
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

void check(const PageHead& head)
{
    if (!head.isOver() || head.icons().size() > PageHead::maximumIcons)
        fail();
    if (const auto title = head.title();
        title && (title->size() > maximumTitleLength || presentableTitle(*title) != title))
        fail();
    for (const QUrl& place : iconPlaces(QUrl(QStringLiteral("https://a.test/b/c")), head.baseHref(), head.icons())) {
        if (place.scheme() != QLatin1String("data") && place.scheme() != QLatin1String("http")
            && place.scheme() != QLatin1String("https"))
            fail();
    }
}

} // namespace

/// The first byte chooses the type, the next four the sizes of the parts; the rest is the page. It reads the same in
/// parts and as a whole.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < headerSize)
        return 0;
    const QByteArray type = contentTypes[data[0] % contentTypes.size()];
    const QByteArrayView page(reinterpret_cast<const char*>(data) + headerSize, qsizetype(size - headerSize));
    PageHead whole(type);
    whole.feed(page);
    whole.finish();
    check(whole);

    PageHead parts(type);
    int part = 0;
    for (qsizetype at = 0; at < page.size();) {
        const qsizetype length = std::min<qsizetype>(1 + data[1 + part % 4], page.size() - at);
        parts.feed(page.sliced(at, length));
        at += length;
        ++part;
    }
    parts.finish();
    if (parts.title() != whole.title() || parts.icons() != whole.icons() || parts.baseHref() != whole.baseHref())
        fail();
    return 0;
}
