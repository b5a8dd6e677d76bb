#include "NullBackend.h"

#include "CompositorEnd.h"

#include <QCoreApplication>

#include <utility>

namespace nookle {

namespace {

class NoDisplays final : public Displays {
public:
    [[nodiscard]] std::vector<QRectF> frames() const override { return {}; }
    [[nodiscard]] std::optional<QRectF> mainFrame() const override { return std::nullopt; }
    [[nodiscard]] QString identity(const QRectF& /*frame*/) const override { return {}; }
    [[nodiscard]] QRectF visibleFrame(const QRectF& frame) const override { return frame; }
};

class NoPointer final : public Pointer {
public:
    [[nodiscard]] QPointF position() const override { return {}; }
    [[nodiscard]] bool isLeftButtonDown() const override { return false; }
};

class NoInput final : public InputMonitor {
public:
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> /*handler*/) override
    {
        return nullptr;
    }
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftDrag(std::function<void()> /*handler*/) override
    {
        return nullptr;
    }
    [[nodiscard]] qint64 dragChangeCount() const override { return 0; }
};

class NoCompositing final : public Compositing {
public:
    [[nodiscard]] Backdrop backdrop() const override { return Backdrop::opaque; }
};

class NoShortcuts final : public GlobalShortcuts {
public:
    [[nodiscard]] std::unique_ptr<Cancellable> registerShortcut(QKeyCombination /*keys*/,
                                                                const QString& /*description*/,
                                                                std::function<void()> /*pressed*/) override
    {
        return nullptr;
    }
    [[nodiscard]] QString boundKeys() const override { return {}; }
    [[nodiscard]] std::optional<QKeyCombination> boundCombination() const override { return {}; }
    [[nodiscard]] QString wantedKeys() const override { return {}; }
    [[nodiscard]] QString obstacle() const override
    {
        return QCoreApplication::translate("nookle::NullBackend", "The shelf cannot be shown on this desktop");
    }
    [[nodiscard]] bool canAskAgain() const override { return false; }
    void askAgain() override {}
};

/// Never shown, because there is no display to show it on.
class NoPanelWindow final : public PanelWindow {
public:
    void setFrame(const QRectF& frame) override { m_frame = frame; }
    [[nodiscard]] QRectF frame() const override { return m_frame; }
    void orderFront() override {}
    void takeFocus() override {}
    void orderOut() override {}
    void animateFrame(const QRectF& frame, double /*seconds*/, Easing /*easing*/,
                      std::function<void()> completion) override
    {
        m_frame = frame;
        if (completion)
            completion();
    }

private:
    QRectF m_frame;
};

} // namespace

struct NullBackend::Parts {
    NoDisplays displays;
    NoPointer pointer;
    NoInput input;
    NoCompositing compositing;
    NoShortcuts shortcuts;
};

NullBackend::NullBackend()
    : m_parts(std::make_unique<Parts>())
    , m_end(std::make_unique<CompositorEnd>([this] {
        if (onServerGone)
            onServerGone();
    }))
{
}

NullBackend::~NullBackend() = default;

const Displays& NullBackend::displays() const
{
    return m_parts->displays;
}

const Pointer& NullBackend::pointer() const
{
    return m_parts->pointer;
}

InputMonitor& NullBackend::inputMonitor()
{
    return m_parts->input;
}

Compositing& NullBackend::compositing()
{
    return m_parts->compositing;
}

GlobalShortcuts& NullBackend::globalShortcuts()
{
    return m_parts->shortcuts;
}

std::unique_ptr<DropPayload> NullBackend::dropPayload(const QMimeData& /*data*/)
{
    return nullptr;
}

void NullBackend::offerDrag(std::shared_ptr<const DragPayload> /*payload*/) {}

std::unique_ptr<PanelWindow> NullBackend::makePanelWindow(QWindow& /*window*/, double /*cornerRadius*/)
{
    return std::make_unique<NoPanelWindow>();
}

} // namespace nookle
