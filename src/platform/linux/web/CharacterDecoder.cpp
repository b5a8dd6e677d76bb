#include "CharacterDecoder.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>

namespace nookle {

namespace {

constexpr std::string_view replacement = "\xef\xbf\xbd";
// No character set of the web has longer characters, shift sequences included.
inline constexpr qsizetype longestCharacter = 16;

void appendText(QByteArray& text, const char* bytes, std::size_t size)
{
    for (const char c : std::string_view(bytes, size)) {
        if (c == '\0')
            text.append(replacement.data(), qsizetype(replacement.size()));
        else
            text.append(c);
    }
}

} // namespace

std::unique_ptr<CharacterDecoder> CharacterDecoder::tryCreate(const QByteArray& set)
{
    const iconv_t converter = ::iconv_open("UTF-8", set.constData());
    if (converter == iconv_t(-1)) // NOLINT(performance-no-int-to-ptr): how the interface says no
        return nullptr;
    return std::unique_ptr<CharacterDecoder>(new CharacterDecoder(converter));
}

CharacterDecoder::CharacterDecoder(iconv_t converter)
    : m_converter(converter)
{
}

CharacterDecoder::~CharacterDecoder()
{
    ::iconv_close(m_converter);
}

QByteArray CharacterDecoder::decode(QByteArrayView bytes)
{
    m_waiting.append(bytes);
    char* input = m_waiting.data();
    std::size_t left = std::size_t(m_waiting.size());
    QByteArray text;
    text.reserve(m_waiting.size());
    std::array<char, 4096> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): written before it is read
    while (left > 0) {
        char* output = buffer.data();
        std::size_t room = buffer.size();
        const bool isDone = ::iconv(m_converter, &input, &left, &output, &room) != std::size_t(-1);
        const int error = errno;
        appendText(text, buffer.data(), buffer.size() - room);
        if (isDone || error == E2BIG)
            continue;
        if (error == EINVAL && left < std::size_t(longestCharacter))
            break;
        text.append(replacement.data(), qsizetype(replacement.size()));
        ++input;
        --left;
    }
    m_waiting = m_waiting.last(qsizetype(left));
    return text;
}

} // namespace nookle
