#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

namespace nookle {

/// One request to the desktop's portal for shortcuts, which may ask the user before it answers. Destroying the object
/// withdraws the request. Main thread only.
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        granted,
        /// The user has said no.
        declined,
        /// The portal gave up for another reason.
        failed,
        /// The portal does not run, or knows no such request.
        refused,
    };

    /// The completion may destroy the request. `results` are the portal's.
    using Completion = std::function<void(Outcome outcome, const QVariantMap& results)>;

    /// Sends the request. `arguments` are those before the last one, which are `options`.
    PortalRequest(const QDBusConnection& bus, const QString& method, QVariantList arguments, QVariantMap options,
                  Completion completion);
    ~PortalRequest() override;

private Q_SLOTS:
    void respond(uint response, const QVariantMap& results);

private:
    void finish(Outcome outcome, const QVariantMap& results);

    QDBusConnection m_bus;
    /// The request's object in the portal.
    QString m_path;
    /// Empty once it was called.
    Completion m_completion;
};

} // namespace nookle
