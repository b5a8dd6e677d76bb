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
#include <QDeadlineTimer>
#include <QVariantMap>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

using Descriptors = QList<QDBusUnixFileDescriptor>;

/// In milliseconds. Waiting for an offer blocks the user interface.
inline constexpr int patienceForOffer = 500;
inline constexpr int patienceForRetrieval = 2000;

/// Buses carry few descriptors in a message. Waiting for each call also keeps few of them open.
inline constexpr qsizetype mostInOneCall = 16;

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
[[nodiscard]] std::optional<QDBusUnixFileDescriptor> descriptorOf(const QUrl& file, const FilePlaces& places)
{
    const QByteArray path = filePath(file);
    if (!places.mayLookAt(path, FilePlaces::Links::follow))
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

bool PortalFileTransfers::canHandOver(const QList<QUrl>& files)
{
    const FilePlaces places(m_mounts->table());
    return std::all_of(files.begin(), files.end(), [&](const QUrl& file) {
        const QByteArray path = filePath(file);
        struct stat status {};
        return places.mayLookAt(path, FilePlaces::Links::follow) && ::stat(path.constData(), &status) == 0
            && S_ISREG(status.st_mode);
    });
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

bool PortalFileTransfers::add(const QByteArray& key, const QList<QUrl>& files)
{
    qDBusRegisterMetaType<Descriptors>();
    const FilePlaces places(m_mounts->table());
    const QDeadlineTimer deadline(patienceForOffer);
    for (qsizetype first = 0; first < files.size(); first += mostInOneCall) {
        Descriptors descriptors;
        for (const QUrl& file : files.mid(first, mostInOneCall)) {
            const auto descriptor = descriptorOf(file, places);
            if (!descriptor)
                return false;
            descriptors.append(*descriptor);
        }
        QDBusMessage call = portalCall(QStringLiteral("AddFiles"));
        call << QString::fromUtf8(key) << QVariant::fromValue(descriptors) << QVariantMap();
        const auto patience = static_cast<int>(deadline.remainingTime());
        if (patience == 0 || callAndWait(call, patience).type() != QDBusMessage::ReplyMessage)
            return false;
    }
    return true;
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
