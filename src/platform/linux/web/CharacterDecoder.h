#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <iconv.h>

#include <memory>

namespace nookle {

/// Turns text of one character set into UTF-8 as it arrives. What cannot be read becomes U+FFFD, and so does NUL.
class CharacterDecoder final {
public:
    /// None when the system has no converter for `set`.
    [[nodiscard]] static std::unique_ptr<CharacterDecoder> tryCreate(const QByteArray& set);

    ~CharacterDecoder();
    CharacterDecoder(const CharacterDecoder&) = delete;
    CharacterDecoder& operator=(const CharacterDecoder&) = delete;

    /// The text of what has arrived so far and was not returned yet. A character that is cut off waits for its rest.
    [[nodiscard]] QByteArray decode(QByteArrayView bytes);

private:
    explicit CharacterDecoder(iconv_t converter);

    iconv_t m_converter;
    QByteArray m_waiting;
};

} // namespace nookle
