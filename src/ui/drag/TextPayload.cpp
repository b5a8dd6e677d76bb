#include "TextPayload.h"

namespace nookle {

// Receivers that know both formats take the first one, which names the character set.
void addText(DragPayload& payload, const QString& text)
{
    for (const auto* format : { "text/plain;charset=utf-8", "text/plain" })
        payload.add(QLatin1String(format), [text] { return text.toUtf8(); });
}

DragPayload textPayload(const QString& text)
{
    DragPayload payload;
    addText(payload, text);
    return payload;
}

} // namespace nookle
