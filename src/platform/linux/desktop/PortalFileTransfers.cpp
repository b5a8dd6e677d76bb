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
#include <unistd.h>

#include <utility>

namespace nookle {

namespace {

using Descriptors = QList<QDBusUnixFileDescriptor>;

/// In milliseconds. The first two block the interface.
inline constexpr int patienceForBus = 200;
inline constexpr int patienceForOffer = 500;
inline constexpr int patienceForRetrieval = 2000;

/// The portal takes no more in one call.
inline constexpr qsizetype mostDescriptors = 16;

[[nodiscard]] QString portal()
{
    return QStringLiteral("org.freedesktop.portal.Documents");
}

[[nodiscard]] QDBusMessage portalCall(const QString& method)
{
    return QDBusMessage::createMethodCall(portal(), QStringLiteral("/org/freedesktop/portal/documents"),
                                          QStringLiteral("org.freedesktop.portal.FileTransfer"), method);
}

[[nodiscard]] QDBusMessage busCall(const QString& method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

[[nodiscard]] QDBusMessage callAndWait(const QDBusMessage& call, int patience)
{
    return QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
}

/// Opened without reading: the right to the file is what is handed over.
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

[[nodiscard]] bool addFiles(const QString& key, const Descriptors& descriptors)
{
    QDBusMessage call = portalCall(QStringLiteral("AddFiles"));
    call << key << QVariant::fromValue(descriptors) << QVariantMap();
    return callAndWait(call, patienceForOffer).type() == QDBusMessage::ReplyMessage;
}

} // namespace

PortalFileTransfers::PortalFileTransfers(std::shared_ptr<Mounts> mounts)
    : m_mounts(std::move(mounts))
{
}

bool PortalFileTransfers::isAvailable()
{
    for (const QString& list : { QStringLiteral("ListNames"), QStringLiteral("ListActivatableNames") }) {
        const QDBusMessage reply = callAndWait(busCall(list), patienceForBus);
        if (reply.arguments().value(0).toStringList().contains(portal()))
            return true;
    }
    return false;
}

std::optional<QByteArray> PortalFileTransfers::offer(const QList<QUrl>& files)
{
    qDBusRegisterMetaType<Descriptors>();
    Descriptors descriptors;
    for (const QUrl& file : files) {
        if (auto descriptor = descriptorOf(file, *m_mounts))
            descriptors.append(*descriptor);
    }
    if (descriptors.isEmpty() || descriptors.size() > mostDescriptors)
        return std::nullopt;
    QDBusMessage start = portalCall(QStringLiteral("StartTransfer"));
    start << QVariantMap();
    const QString key = callAndWait(start, patienceForOffer).arguments().value(0).toString();
    if (key.isEmpty() || !addFiles(key, descriptors))
        return std::nullopt;
    return key.toUtf8();
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
