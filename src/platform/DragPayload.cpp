#include "DragPayload.h"

namespace nookle {

void DragPayload::add(const QString& format, Maker make)
{
    m_formats.emplace_back(format, std::move(make));
}

QStringList DragPayload::formats() const
{
    QStringList names;
    for (const auto& format : m_formats)
        names.append(format.first);
    return names;
}

std::optional<QByteArray> DragPayload::data(const QString& format) const
{
    for (const auto& [name, make] : m_formats) {
        if (name == format)
            return make();
    }
    return std::nullopt;
}

} // namespace nookle
