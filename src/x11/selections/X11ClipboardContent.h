#pragma once

#include "Pasteboard.h"
#include "X11SelectionTransfer.h"
#include "XcbConnection.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

/// The content of the clipboard or the selection, read on a connection of its own while the event loop runs: the
/// toolkit would block for five seconds for each format that the owner does not deliver, and has no limit of size. A
/// question ends with the program that it was for.
class X11ClipboardContent final : public QObject, public ClipboardContent {
    Q_OBJECT

public:
    /// `selection` is the name of an atom. Nothing more is delivered after `patience`.
    X11ClipboardContent(const char* selection, std::chrono::milliseconds patience);
    ~X11ClipboardContent() override;

    void askFormats(Formats answer) override;
    void askData(const QString& format, Bytes answer) override;

private:
    void ask(std::uint32_t target, qsizetype maximumSize, X11SelectionTransfer::Excess excess, Bytes answer);
    /// Answers with the names of `m_atoms`, some of which it looks up now, and the others in later turns.
    void answerNames(Formats answer);
    void watchOwner();
    [[nodiscard]] bool isEndOfOwner(const xcb_generic_event_t& event) const;
    void readEvent();
    void readEventSoon();
    void giveUp();
    void finish(const QByteArray& bytes);

    /// Null once the owner took too long, or when there is no connection.
    XcbConnection m_connection;
    std::uint32_t m_selection = 0;
    /// The window of the program that is asked.
    std::uint32_t m_owner = 0;
    qsizetype m_left;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_patience;
    std::optional<X11SelectionTransfer> m_transfer;
    Bytes m_answer;
    /// The formats that the owner has listed and whose names are not known yet, in its order.
    std::vector<std::uint32_t> m_atoms;
    QStringList m_names;
    bool m_readsSoon = false;
};

} // namespace nookle
