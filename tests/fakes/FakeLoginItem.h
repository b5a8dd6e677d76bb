#pragma once

#include "LoginItem.h"

#include <QString>

namespace nookle {

/// A desktop that starts programs as a test says.
class FakeLoginItem final : public LoginItem {
public:
    Status status() const override { return current; }

    std::optional<Failure> registerItem() override
    {
        ++registrations;
        if (!refusal.isEmpty())
            return Failure{ refusal };
        current = demandsApproval ? Status::requiresApproval : Status::enabled;
        return std::nullopt;
    }

    std::optional<Failure> unregisterItem() override
    {
        ++unregistrations;
        if (!refusal.isEmpty())
            return Failure{ refusal };
        current = Status::notRegistered;
        return std::nullopt;
    }

    void openSystemSettings() override { ++openedSettings; }

    Status current = Status::notRegistered;
    bool demandsApproval = false;
    /// Why nothing can be changed; empty when it can.
    QString refusal;
    int registrations = 0;
    int unregistrations = 0;
    int openedSettings = 0;
};

} // namespace nookle
