#pragma once

#include "DropItem.h"

namespace nookle {

/// A dropped element that holds what the test gives it, and counts the questions for a title.
class FakeDropItem final : public DropItem {
public:
    [[nodiscard]] bool hasFileURL() const override { return offersFile; }
    [[nodiscard]] bool hasImage() const override { return offersImage; }
    [[nodiscard]] bool hasURL() const override { return offersURL; }
    [[nodiscard]] bool hasText() const override { return offersText; }
    [[nodiscard]] std::optional<QString> loadURL() const override { return url; }
    [[nodiscard]] std::optional<QUrl> loadImageCopy() const override { return imageCopy; }
    [[nodiscard]] std::optional<QString> loadText() const override { return text; }

    [[nodiscard]] std::optional<QString> loadURLTitle() const override
    {
        if (titleLoads)
            ++*titleLoads;
        return title;
    }

    bool offersFile = false;
    bool offersImage = false;
    bool offersURL = false;
    bool offersText = false;
    std::optional<QString> url;
    std::optional<QUrl> imageCopy;
    std::optional<QString> title;
    std::optional<QString> text;
    int* titleLoads = nullptr;
};

} // namespace nookle
