#include "PortalFileTransfers.h"

#include "FilePlaces.h"
#include "FileUrl.h"
#include "Mounts.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QVariantMap>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace nookle {

namespace {

using Descriptors = QList<QDBusUnixFileDescriptor>;

/// In milliseconds. Waiting for an offer blocks the user interface.
inline constexpr int patienceForOffer = 500;
inline constexpr int patienceForRetrieval = 2000;

[[nodiscard]] QString portal()
{
    return QStringLiteral("org.freedesktop.portal.Documents");
}

[[nodiscard]] QDBusMessage portalCall(const QString& method)
{
    return QDBusMessage::createMethodCall(portal(), QStringLiteral("/org/freedesktop/portal/documents"),
                                          QStringLiteral("org.freedesktop.portal.FileTransfer"), method);
}

[[nodiscard]] QDBusMessage callAndWait(const QDBusMessage& call, int patience)
{
    return QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
}

/// Opened with O_PATH: the descriptor only stands for the access right that is handed over.
[[nodiscard]] std::optional<QDBusUnixFileDescriptor> descriptorOf(const QUrl& file, Mounts& mounts)
{
    const QByteArray path = filePath(file);
    if (!FilePlaces(mounts.table()).mayLookAt(path, FilePlaces::Links::follow))
        return std::nullopt;
    const int descriptor = ::open(path.constData(), O_PATH | O_CLOEXEC);
    if (descriptor < 0)
        return std::nullopt;
    QDBusUnixFileDescriptor owned;
    owned.giveFileDescriptor(descriptor);
    return owned;
}

} // namespace

PortalFileTransfers::PortalFileTransfers(std::shared_ptr<Mounts> mounts)
    : m_mounts(std::move(mounts))
{
}

bool PortalFileTransfers::canHandOver(const QUrl& file)
{
    const QByteArray path = filePath(file);
    struct stat status {};
    return FilePlaces(m_mounts->table()).mayLookAt(path, FilePlaces::Links::follow)
        && ::stat(path.constData(), &status) == 0 && S_ISREG(status.st_mode);
}

// A portal that cannot run is not started again at each drag, because the drag waits for it.
std::optional<QByteArray> PortalFileTransfers::begin()
{
    QDBusMessage call = portalCall(QStringLiteral("StartTransfer"));
    call << QVariantMap();
    call.setAutoStartService(m_mayStartPortal);
    const QDBusMessage reply = callAndWait(call, patienceForOffer);
    m_mayStartPortal = reply.type() == QDBusMessage::ReplyMessage;
    const QByteArray key = m_mayStartPortal ? reply.arguments().value(0).toString().toUtf8() : QByteArray();
    return key.isEmpty() ? std::nullopt : std::optional(key);
}

bool PortalFileTransfers::add(const QByteArray& key, const QUrl& file)
{
    qDBusRegisterMetaType<Descriptors>();
    const auto descriptor = descriptorOf(file, *m_mounts);
    if (!descriptor)
        return false;
    QDBusMessage call = portalCall(QStringLiteral("AddFiles"));
    call << QString::fromUtf8(key) << QVariant::fromValue(Descriptors{ *descriptor }) << QVariantMap();
    return callAndWait(call, patienceForOffer).type() == QDBusMessage::ReplyMessage;
}

void PortalFileTransfers::retrieve(const QByteArray& key, Completion completion)
{
    QDBusMessage call = portalCall(QStringLiteral("RetrieveFiles"));
    call << QString::fromUtf8(key) << QVariantMap();
    const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(call, patienceForRetrieval);
    auto* watcher = new QDBusPendingCallWatcher(pending, this);
    const auto finish = [watcher, completion = std::move(completion)] {
        watcher->deleteLater();
        const QDBusPendingReply<QStringList> reply = *watcher;
        if (reply.isError()) {
            completion(std::nullopt);
            return;
        }
        QList<QUrl> files;
        const QStringList paths = reply.value();
        for (const QString& path : paths)
            files.append(fileUrl(path.toUtf8()));
        completion(files);
    };
    connect(watcher, &QDBusPendingCallWatcher::finished, this, finish);
}

} // namespace nookle
