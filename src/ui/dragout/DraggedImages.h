#pragma once

#include "DraggedImage.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QUuid>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace nookle {

/// Holds the images that are being dragged out of the shelf, and those that were dragged a short while ago: their
/// receivers may still move them. Main thread only.
class DraggedImages final {
public:
    /// Each of them costs an open file for ten minutes. The system allows a program about a thousand, of which the
    /// followed files take up to a half.
    static constexpr std::size_t mostHeld = 256;

    explicit DraggedImages(DraggedImage::Services services);

    /// Checks those of `items` that are watched: one that was moved away is copied back.
    void lookAgain(const QList<ShelfItem>& items);

    /// The drag of `items` begins. Earlier images stay watched. Returns false if no receiver may be allowed to move the
    /// images: because one of them cannot be held, or because there are more than `mostHeld`; it then holds none.
    [[nodiscard]] bool begin(const QList<ShelfItem>& items);

    /// The drag has ended, and its receiver may move the files. Calls `DraggedImage::keepLooking` for each.
    void keepLooking(const std::function<void(const ShelfItem&)>& onTrashed);

    /// The drag has ended without a receiver. Images that were watched before this drag stay watched.
    void end();

    /// The reference to an image that is being dragged; empty for other items.
    [[nodiscard]] QByteArray reference(const QUuid& id) const;

    /// Checks all watched images at once. Call it before the program ends.
    void lookNow();

private:
    [[nodiscard]] std::unique_ptr<DraggedImage> take(const ShelfItem& item);
    void forgetThoseThatAreDone();

    DraggedImage::Services m_services;
    std::vector<std::unique_ptr<DraggedImage>> m_current;
    std::vector<std::unique_ptr<DraggedImage>> m_watched;
};

} // namespace nookle
