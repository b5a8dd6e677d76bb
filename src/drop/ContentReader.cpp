#include "ContentReader.h"

#include <utility>

namespace nookle {

QByteArray ContentReader::Arrived::data(const QString& format) const
{
    const auto bytes = m_bytes.constFind(format);
    if (bytes != m_bytes.constEnd())
        return *bytes;
    // Some owners do not even refuse what they do not offer.
    if (!m_missing && m_formats.contains(format))
        m_missing = format;
    return {};
}

ContentReader::ContentReader(Open open, Look look, Look done)
    : m_open(std::move(open))
    , m_look(std::move(look))
    , m_done(std::move(done))
{
}

void ContentReader::read()
{
    if (m_content) {
        m_isWantedAgain = true;
        return;
    }
    m_content = m_open();
    m_content->askFormats([this](const QStringList& formats) { lookAt(std::make_shared<Arrived>(formats)); });
}

void ContentReader::lookAt(std::shared_ptr<Arrived> arrived)
{
    m_look(*arrived);
    if (const auto missing = arrived->takeMissing()) {
        m_content->askData(*missing, [this, arrived, format = *missing](const QByteArray& bytes) {
            arrived->insert(format, bytes);
            lookAt(arrived);
        });
        return;
    }
    m_content.reset();
    m_done(*arrived);
    if (std::exchange(m_isWantedAgain, false))
        read();
}

} // namespace nookle
