#pragma once

#include "DraggedImage.h"

#include <functional>
#include <memory>
#include <vector>

namespace nookle {

/// The image that is being dragged out of the shelf, and those that were a short while ago, each of which its receiver
/// may still move. Main thread only.
class DraggedImages final {
public:
    explicit DraggedImages(DraggedImage::Services services);

    /// `item` begins to be dragged. Those before it are watched on.
    void begin(const ShelfItem& item);

    /// The drag has ended, and its receiver may move the file: watches over it as `DraggedImage` does.
    void keepLooking(std::function<void()> onTrashed);

    /// The drag has ended, and nobody has the file. A watch that was there before goes on.
    void end();

    /// The reference to the image that is being dragged; empty when there is none.
    [[nodiscard]] QByteArray reference() const { return m_current ? m_current->reference() : QByteArray(); }

    /// Looks after all of them at once, before the program ends.
    void lookNow();

private:
    void forgetThoseThatAreDone();

    DraggedImage::Services m_services;
    std::unique_ptr<DraggedImage> m_current;
    std::vector<std::unique_ptr<DraggedImage>> m_watched;
};

} // namespace nookle
