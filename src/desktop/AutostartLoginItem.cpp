#include "AutostartLoginItem.h"

#include "Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <gio/gdesktopappinfo.h>

#include <memory>

namespace nookle {

namespace {

struct Release {
    void operator()(GDesktopAppInfo* info) const { g_object_unref(info); }
    void operator()(GKeyFile* entry) const { g_key_file_unref(entry); }
    void operator()(char* text) const { g_free(text); }
};

using KeyFile = std::unique_ptr<GKeyFile, Release>;

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;
/// The settings of several desktops write this key to disable an entry without removing it.
constexpr const char* switchKey = "X-GNOME-Autostart-enabled";

[[nodiscard]] KeyFile emptyEntry()
{
    return KeyFile(g_key_file_new());
}

/// The existing entry with all its keys, also those of other programs; an empty entry when it cannot be read.
[[nodiscard]] KeyFile readEntry(const QByteArray& path)
{
    constexpr auto everything = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    KeyFile entry = emptyEntry();
    const bool isRead = g_key_file_load_from_file(entry.get(), path.constData(), everything, nullptr) != FALSE;
    return isRead ? std::move(entry) : emptyEntry();
}

/// `path` as one word of a command line in an entry.
[[nodiscard]] QByteArray quoted(const QByteArray& path)
{
    QByteArray word = "\"";
    for (const char character : path) {
        if (QByteArray("\"`$\\").contains(character))
            word += '\\';
        if (character == '%')
            word += '%';
        word += character;
    }
    return word + '"';
}

[[nodiscard]] bool isSwitchedOff(GDesktopAppInfo* info)
{
    const bool hasSwitch = g_desktop_app_info_has_key(info, switchKey) != FALSE;
    return g_desktop_app_info_get_is_hidden(info) != FALSE || g_desktop_app_info_get_show_in(info, nullptr) == FALSE
        || (hasSwitch && g_desktop_app_info_get_boolean(info, switchKey) == FALSE);
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const QString& program, const QString& entryPath)
    : m_program(program)
    , m_entryPath(entryPath)
{
}

QString AutostartLoginItem::defaultEntryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/autostart/org.nookle.Nookle.desktop");
}

LoginItem::Status AutostartLoginItem::status() const
{
    if (!QFileInfo::exists(m_entryPath))
        return Status::notRegistered;
    // Also null if the program in the entry does not exist.
    const QByteArray path = QFile::encodeName(m_entryPath);
    const std::unique_ptr<GDesktopAppInfo, Release> info(g_desktop_app_info_new_from_filename(path.constData()));
    if (!info)
        return Status::notFound;
    return isSwitchedOff(info.get()) ? Status::requiresApproval : Status::enabled;
}

QByteArray AutostartLoginItem::entryContent() const
{
    const KeyFile entry = readEntry(QFile::encodeName(m_entryPath));
    g_key_file_set_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    g_key_file_set_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_NAME, "Nookle");
    // In the user's language only: the entry is the user's own.
    const QByteArray comment = tr("A shelf at the edge of the screen").toUtf8();
    g_key_file_set_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_COMMENT, comment.constData());
    // The variable tells the program that the user has not started it.
    const QByteArray command = "env NOOKLE_START=login " + quoted(m_program.toUtf8());
    g_key_file_set_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC, command.constData());
    // The desktop passes the entry over in silence once the program is not installed any more.
    g_key_file_set_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, m_program.toUtf8().constData());
    g_key_file_set_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_ICON, "org.nookle.Nookle");
    const std::unique_ptr<char, Release> content(g_key_file_to_data(entry.get(), nullptr, nullptr));
    return content.get();
}

std::optional<Failure> AutostartLoginItem::registerItem()
{
    QSaveFile file(m_entryPath);
    const bool isFolderThere = QDir().mkpath(QFileInfo(m_entryPath).path());
    const QByteArray content = entryContent();
    // Committing alone would pass over a failure to write what is still in the file's buffer.
    const bool isWritten = isFolderThere && file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
        && file.flush() && file.commit();
    if (isWritten)
        return std::nullopt;
    const QString reason = isFolderThere ? file.errorString() : tr("its folder cannot be made");
    return Failure{ tr("%1 could not be written: %2").arg(m_entryPath, reason) };
}

std::optional<Failure> AutostartLoginItem::unregisterItem()
{
    QFile file(m_entryPath);
    if (!file.exists() || file.remove())
        return std::nullopt;
    return Failure{ tr("%1 could not be removed: %2").arg(m_entryPath, file.errorString()) };
}

// Without the library for programs, which would read the folders of them all.
void AutostartLoginItem::renew()
{
    if (!QFileInfo::exists(m_entryPath))
        return;
    const KeyFile entry = readEntry(QFile::encodeName(m_entryPath));
    const std::unique_ptr<char, Release> command(
        g_key_file_get_string(entry.get(), group, G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr));
    // An entry that starts another program, or this one in a way of the user's own, is left alone.
    if (quoted(m_program.toUtf8()) == command.get() && registerItem())
        logLine(QStringLiteral("could not renew the entry for the start at login: %1").arg(m_entryPath));
}

void AutostartLoginItem::openSystemSettings()
{
    m_settings.open(QFileInfo(m_entryPath).path());
}

} // namespace nookle
