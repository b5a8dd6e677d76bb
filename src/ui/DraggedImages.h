#pragma once

#include "DraggedImage.h"

#include <functional>
#include <memory>
#include <vector>

namespace nookle {

/// Holds the image that is being dragged out of the shelf, and those that were dragged a short while ago: their
/// receivers may still move them. Main thread only.
class DraggedImages final {
public:
    explicit DraggedImages(DraggedImage::Services services);

    /// The drag of `item` begins. Earlier images stay watched.
    void begin(const ShelfItem& item);

    /// The drag has ended, and its receiver may move the file. Calls `DraggedImage::keepLooking`.
    void keepLooking(std::function<void()> onTrashed);

    /// The drag has ended without a receiver. If the image was watched before this drag, it stays watched.
    void end();

    /// The reference to the image that is being dragged; empty when there is none.
    [[nodiscard]] QByteArray reference() const { return m_current ? m_current->reference() : QByteArray(); }

    /// Checks all watched images at once. Call it before the program ends.
    void lookNow();

private:
    void forgetThoseThatAreDone();

    DraggedImage::Services m_services;
    std::unique_ptr<DraggedImage> m_current;
    std::vector<std::unique_ptr<DraggedImage>> m_watched;
};

} // namespace nookle
