#pragma once

#include "Displays.h"

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
    mutable int timesAsked = 0;
};

} // namespace nookle
