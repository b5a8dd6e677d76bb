#include "Catalogue.h"

#include <QFile>
#include <QXmlStreamReader>

namespace nookle {

namespace {

[[nodiscard]] QStringList readTranslations(QXmlStreamReader& xml, bool hasPlural)
{
    if (!hasPlural)
        return { xml.readElementText() };
    QStringList forms;
    while (xml.readNextStartElement())
        forms.append(xml.readElementText());
    return forms;
}

[[nodiscard]] CatalogueMessage readMessage(QXmlStreamReader& xml, const QString& context)
{
    CatalogueMessage message;
    message.context = context;
    message.hasPlural = xml.attributes().value(QLatin1String("numerus")) == QLatin1String("yes");
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("comment")) {
            message.comment = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            message.isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
            message.translations = readTranslations(xml, message.hasPlural);
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

} // namespace

std::optional<QList<CatalogueMessage>> readCatalogue(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QXmlStreamReader xml(&file);
    QList<CatalogueMessage> messages;
    QString context;
    xml.readNextStartElement();
    while (xml.readNextStartElement()) {
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("name"))
                context = xml.readElementText();
            else
                messages.append(readMessage(xml, context));
        }
    }
    return xml.hasError() ? std::nullopt : std::optional(messages);
}

} // namespace nookle
