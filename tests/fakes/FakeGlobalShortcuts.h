#pragma once

#include "GlobalShortcuts.h"

#include <map>
#include <utility>

namespace nookle {

/// Shortcuts that are pressed when a test says so.
class FakeGlobalShortcuts : public GlobalShortcuts {
public:
    struct Registered {
        QKeyCombination keys;
        QString description;
        std::function<void()> pressed;
    };

    std::unique_ptr<Cancellable> registerShortcut(QKeyCombination keys, const QString& description,
                                                  std::function<void()> pressed) override
    {
        if (refuses)
            return nullptr;
        const int number = ++m_lastNumber;
        registered.insert_or_assign(number, Registered{ keys, description, std::move(pressed) });
        return std::make_unique<Cancellable>([this, number] { registered.erase(number); });
    }

    [[nodiscard]] QString boundKeys() const override { return bound; }
    [[nodiscard]] std::optional<QKeyCombination> boundCombination() const override { return combination; }
    [[nodiscard]] QString wantedKeys() const override { return wanted; }
    [[nodiscard]] QString obstacle() const override { return reason; }
    [[nodiscard]] bool canAskAgain() const override { return mayBeAsked; }
    void askAgain() override { ++timesAsked; }

    bool refuses = false;
    /// By their number, counted from 1.
    std::map<int, Registered> registered;

    /// What the desktop says of the first one. Emit `changed` after a change.
    QString bound;
    std::optional<QKeyCombination> combination;
    QString wanted;
    QString reason;
    bool mayBeAsked = false;
    int timesAsked = 0;

private:
    int m_lastNumber = 0;
};

} // namespace nookle
