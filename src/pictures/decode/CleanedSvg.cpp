#include "CleanedSvg.h"

#include "PictureFormat.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace nookle {

namespace {

[[nodiscard]] QStringView withoutPrefix(QStringView qualifiedName)
{
    return qualifiedName.mid(qualifiedName.lastIndexOf(u':') + 1);
}

// A "data:" reference rebuilt from its pixel image, with the image's true type; empty for any other reference.
[[nodiscard]] QString embeddedPixels(QStringView reference)
{
    static constexpr QLatin1String mark("base64,");
    const qsizetype start = reference.indexOf(mark);
    if (!reference.startsWith(QLatin1String("data:")) || start < 0)
        return {};
    const QByteArray data = QByteArray::fromBase64(reference.mid(start + mark.size()).toLatin1());
    const QByteArray format = pixelFormat(data);
    if (format.isEmpty())
        return {};
    return QStringLiteral("data:image/%1;base64,%2").arg(QLatin1String(format), QLatin1String(data.toBase64()));
}

[[nodiscard]] QString cleanedReference(QStringView reference)
{
    reference = reference.trimmed();
    return reference.startsWith(u'#') ? reference.toString() : embeddedPixels(reference);
}

void copyStartElement(const QXmlStreamReader& reader, QXmlStreamWriter& writer)
{
    writer.writeStartElement(reader.qualifiedName().toString());
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        if (withoutPrefix(name) != u"href") {
            writer.writeAttribute(name, attribute.value().toString());
            continue;
        }
        const QString reference = cleanedReference(attribute.value());
        if (!reference.isEmpty())
            writer.writeAttribute(name, reference);
    }
}

} // namespace

std::optional<QByteArray> cleanedSvg(const QByteArray& document)
{
    QByteArray cleaned;
    QXmlStreamReader reader(document);
    // Prefixes are copied unchanged.
    reader.setNamespaceProcessing(false);
    QXmlStreamWriter writer(&cleaned);
    bool isInDrawing = false;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (!isInDrawing && withoutPrefix(reader.qualifiedName()) != u"svg")
                return std::nullopt;
            isInDrawing = true;
            copyStartElement(reader, writer);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            break;
        case QXmlStreamReader::Characters:
            writer.writeCharacters(reader.text().toString());
            break;
        default:
            break;
        }
    }
    if (reader.hasError() || !isInDrawing)
        return std::nullopt;
    return cleaned;
}

} // namespace nookle
