#pragma once

#include <QObject>

#include <array>
#include <optional>

namespace nookle {

class UserDefaults;

/// The user's settings. Every assignment is written to the settings file. A signal is emitted only if the value has
/// changed. Main thread only.
class AppSettings final : public QObject {
    Q_OBJECT

public:
    /// How long an unpinned item stays on the shelf. The value is the maximum age in seconds; `never` means no limit.
    enum class Expiry : qint64 { never = 0, hour = 3600, day = 86400, week = 604800 };

    /// In the order in which the user sees them.
    static constexpr std::array allExpiries{ Expiry::never, Expiry::hour, Expiry::day, Expiry::week };

    /// The value with that number of seconds; none for any other number.
    [[nodiscard]] static std::optional<Expiry> expiry(qint64 rawValue);
    [[nodiscard]] static QString title(Expiry expiry);

    /// Reads the settings once. `defaults` must outlive this object.
    explicit AppSettings(UserDefaults& defaults);

    [[nodiscard]] bool autoExpandOnDrag() const { return m_autoExpandOnDrag; }
    void setAutoExpandOnDrag(bool autoExpandOnDrag);

    [[nodiscard]] Expiry expiry() const { return m_expiry; }
    void setExpiry(Expiry expiry);

    [[nodiscard]] bool reservesSpace() const { return m_reservesSpace; }
    void setReservesSpace(bool reservesSpace);

    [[nodiscard]] bool collectScreenshots() const { return m_collectScreenshots; }
    void setCollectScreenshots(bool collectScreenshots);

    [[nodiscard]] bool moveScreenshots() const { return m_moveScreenshots; }
    void setMoveScreenshots(bool moveScreenshots);

Q_SIGNALS:
    void autoExpandOnDragChanged();
    void expiryChanged();
    void reservesSpaceChanged();
    void collectScreenshotsChanged();
    void moveScreenshotsChanged();

private:
    using Signal = void (AppSettings::*)();

    void setFlag(bool& flag, bool value, const QString& forKey, Signal changed);

    UserDefaults& m_defaults;
    bool m_autoExpandOnDrag;
    Expiry m_expiry;
    bool m_reservesSpace;
    bool m_collectScreenshots;
    bool m_moveScreenshots;
};

} // namespace nookle
