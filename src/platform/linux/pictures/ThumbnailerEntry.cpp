#include "ThumbnailerEntry.h"

#include "CommandLine.h"

#include <QMap>
#include <QStandardPaths>

namespace nookle {

namespace {

[[nodiscard]] QString unescaped(QStringView value)
{
    QString result;
    for (qsizetype index = 0; index < value.size(); ++index) {
        if (value[index] != u'\\' || index + 1 == value.size()) {
            result += value[index];
            continue;
        }
        switch (const QChar code = value[++index]; code.unicode()) {
        case u's':
            result += u' ';
            break;
        case u'n':
            result += u'\n';
            break;
        case u't':
            result += u'\t';
            break;
        case u'r':
            result += u'\r';
            break;
        case u'\\':
            result += u'\\';
            break;
        default:
            result += u'\\';
            result += code;
        }
    }
    return result;
}

[[nodiscard]] QMap<QString, QString> entryValues(const QByteArray& content)
{
    QMap<QString, QString> values;
    bool isInGroup = false;
    const QString text = QString::fromUtf8(content);
    const QList<QStringView> lines = QStringView(text).split(u'\n');
    for (QStringView line : lines) {
        line = line.trimmed();
        if (line.startsWith(u'['))
            isInGroup = line == u"[Thumbnailer Entry]";
        const qsizetype equals = line.indexOf(u'=');
        if (!isInGroup || line.startsWith(u'#') || equals < 1)
            continue;
        values.insert(line.left(equals).trimmed().toString(), unescaped(line.mid(equals + 1).trimmed()));
    }
    return values;
}

} // namespace

std::optional<ThumbnailerEntry> ThumbnailerEntry::parse(const QByteArray& content)
{
    const QMap<QString, QString> values = entryValues(content);
    const auto command = commandWords(values.value(QStringLiteral("Exec")));
    const QStringList types = values.value(QStringLiteral("MimeType")).split(u';', Qt::SkipEmptyParts);
    if (!command || types.isEmpty())
        return std::nullopt;
    ThumbnailerEntry entry{ *command, values.value(QStringLiteral("TryExec")), QStringList() };
    for (const QString& type : types)
        entry.mimeTypes.append(type.trimmed());
    return entry;
}

bool ThumbnailerEntry::isInstalled() const
{
    return tryExec.isEmpty() || !QStandardPaths::findExecutable(tryExec).isEmpty();
}

} // namespace nookle
