#pragma once

#include "PrivateDesktop.h"
#include "WritingWindow.h"

#include <QByteArray>
#include <QPoint>

#include <memory>
#include <optional>
#include <vector>

namespace nookle::e2e {

/// A mail program with the window for a new message.
class MailComposer {
public:
    struct Attachment {
        QByteArray name;
        QByteArray content;
    };

    /// Gives the program an account, and returns once it shows the empty message; null, with a warning, when it does
    /// not.
    [[nodiscard]] static std::unique_ptr<MailComposer> tryOpen(PrivateDesktop& desktop);

    /// In the body of the message.
    [[nodiscard]] QPoint body() const { return m_window->text(); }

    /// Saves the message as a draft by the program's own key, until so many things are attached: nothing shows when a
    /// drop has been taken. Returns what is attached. A name that is not ASCII is encoded.
    [[nodiscard]] std::vector<Attachment> savedAttachments(std::size_t expected) const;

private:
    explicit MailComposer(PrivateDesktop& desktop);

    [[nodiscard]] QByteArray draft() const;

    PrivateDesktop& m_desktop;
    std::unique_ptr<Program> m_program;
    std::optional<WritingWindow> m_window;
};

} // namespace nookle::e2e
