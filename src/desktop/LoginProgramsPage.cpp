#include "LoginProgramsPage.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <vector>

namespace nookle {

namespace {

struct Page {
    QString desktop;
    QStringList command;
};

[[nodiscard]] const std::vector<Page>& pages()
{
    const QString gnome = QStringLiteral("GNOME");
    const QString kde = QStringLiteral("KDE");
    static const std::vector<Page> known{
        { gnome, { QStringLiteral("gnome-tweaks") } },
        { gnome, { QStringLiteral("gnome-session-properties") } },
        { kde, { QStringLiteral("systemsettings"), QStringLiteral("kcm_autostart") } },
        { kde, { QStringLiteral("systemsettings5"), QStringLiteral("kcm_autostart") } },
        { QStringLiteral("XFCE"), { QStringLiteral("xfce4-session-settings") } },
        { QStringLiteral("X-Cinnamon"), { QStringLiteral("cinnamon-settings"), QStringLiteral("startup") } },
        { QStringLiteral("MATE"), { QStringLiteral("mate-session-properties") } },
        { QStringLiteral("LXQt"), { QStringLiteral("lxqt-config-session") } },
        { QStringLiteral("LXDE"), { QStringLiteral("lxsession-edit") } },
    };
    return known;
}

[[nodiscard]] bool isInstalled(const Page& page)
{
    return !QStandardPaths::findExecutable(page.command.first()).isEmpty();
}

} // namespace

std::optional<QStringList> LoginProgramsPage::command(const QStringList& desktops)
{
    std::vector<Page> installed;
    std::copy_if(pages().begin(), pages().end(), std::back_inserter(installed), isInstalled);
    const auto own = std::find_if(installed.begin(), installed.end(),
                                  [&desktops](const Page& page) { return desktops.contains(page.desktop); });
    if (own != installed.end())
        return own->command;
    return installed.empty() ? std::nullopt : std::optional(installed.front().command);
}

void LoginProgramsPage::open(const QString& folder) const
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    const auto page = command(desktops);
    if (!page || !QProcess::startDetached(page->first(), page->mid(1)))
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

} // namespace nookle
