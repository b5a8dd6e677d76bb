#pragma once

#include "LoginItem.h"
#include "LoginProgramsPage.h"

#include <QCoreApplication>
#include <QString>

namespace nookle {

/// The login item as an entry in the user's autostart folder. The entry is read anew at each call, because the
/// desktop's settings write it too. Main thread only.
class AutostartLoginItem final : public LoginItem {
    Q_DECLARE_TR_FUNCTIONS(nookle::AutostartLoginItem)

public:
    /// `program` is the absolute path of the program to start.
    explicit AutostartLoginItem(const QString& program, const QString& entryPath = defaultEntryPath());

    /// The path at which the desktop expects the entry.
    [[nodiscard]] static QString defaultEntryPath();

    [[nodiscard]] Status status() const override;
    [[nodiscard]] std::optional<Failure> registerItem() override;
    [[nodiscard]] std::optional<Failure> unregisterItem() override;
    void openSystemSettings() override;

    /// Writes an entry of an older version anew, which does not tell the program that the session has started it. A
    /// failure is one log line.
    void renew();

private:
    [[nodiscard]] QByteArray entryContent() const;

    QString m_program;
    QString m_entryPath;
    LoginProgramsPage m_settings;
};

} // namespace nookle
