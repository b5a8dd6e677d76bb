#pragma once

#include "Displays.h"

#include <utility>

namespace nookle {

/// Displays as the test sets them.
class FakeDisplays final : public Displays {
public:
    struct Entry {
        QRectF frame;
        QRectF visibleFrame;
        QString identity = {};
    };

    [[nodiscard]] std::vector<QRectF> frames() const override
    {
        ++timesAsked;
        std::vector<QRectF> frames;
        for (const Entry& entry : entries)
            frames.push_back(entry.frame);
        return frames;
    }

    [[nodiscard]] std::optional<QRectF> mainFrame() const override
    {
        return entries.empty() ? std::nullopt : std::optional(entries.at(main).frame);
    }

    void findActive(Found found) const override
    {
        if (mustBeAsked)
            search = std::move(found);
        else
            found(mainFrame());
    }

    [[nodiscard]] QString identity(const QRectF& frame) const override
    {
        for (const Entry& entry : entries) {
            if (entry.frame == frame)
                return entry.identity;
        }
        return {};
    }

    [[nodiscard]] QRectF visibleFrame(const QRectF& frame) const override
    {
        for (const Entry& entry : entries) {
            if (entry.frame == frame)
                return entry.visibleFrame;
        }
        return frame;
    }

    std::vector<Entry> entries{ { { 0, 0, 1280, 800 }, { 0, 0, 1280, 800 }, QStringLiteral("first") } };
    /// The main display, counted from 0.
    std::size_t main = 0;
    /// Whether a search for the active display ends only when the test calls `search`.
    bool mustBeAsked = false;
    mutable Found search;
    mutable int timesAsked = 0;
};

} // namespace nookle
