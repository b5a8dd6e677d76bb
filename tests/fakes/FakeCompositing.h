#pragma once

#include "Compositing.h"

namespace nookle {

/// A desktop that draws windows as a test says.
class FakeCompositing final : public Compositing {
public:
    [[nodiscard]] Backdrop backdrop() const override { return m_backdrop; }

    void change(Backdrop backdrop)
    {
        m_backdrop = backdrop;
        Q_EMIT backdropChanged();
    }

private:
    Backdrop m_backdrop = Backdrop::opaque;
};

} // namespace nookle
