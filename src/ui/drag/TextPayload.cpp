#include "TextPayload.h"

namespace nookle {

void addText(DragPayload& payload, const QString& text)
{
    addTextOnRequest(payload, [text] { return text; });
}

// Receivers that know both formats take the first one, which names the character set.
void addTextOnRequest(DragPayload& payload, const std::function<QString()>& makeText)
{
    for (const auto* format : { "text/plain;charset=utf-8", "text/plain" })
        payload.add(QLatin1String(format), [makeText] { return makeText().toUtf8(); });
}

DragPayload textPayload(const QString& text)
{
    DragPayload payload;
    addText(payload, text);
    return payload;
}

} // namespace nookle
