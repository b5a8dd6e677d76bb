#include "MailComposer.h"

#include "Waiting.h"

#include <QDir>
#include <QFile>

namespace nookle::e2e {

namespace {

const char* const account = "[Account: 1]\naccount_name=test\nis_default=1\nname=Test\naddress=test@example.org\n"
                            "receive_server=localhost\nsmtp_server=localhost\nuser_id=test\n";

const char* const folders = R"(<?xml version="1.0" encoding="UTF-8"?>
<folderlist><folder type="mh" name="Mailbox" path="Mail">
<folderitem type="inbox" name="inbox" path="inbox"/><folderitem type="outbox" name="sent" path="sent"/>
<folderitem type="draft" name="draft" path="draft"/><folderitem type="queue" name="queue" path="queue"/>
<folderitem type="trash" name="trash" path="trash"/>
</folder></folderlist>
)";

/// What stands between two marks; empty if the first one is missing.
[[nodiscard]] QByteArray between(const QByteArray& text, const QByteArray& before, const QByteArray& after)
{
    const auto start = text.indexOf(before);
    if (start < 0)
        return {};
    const auto from = start + before.size();
    return text.mid(from, text.indexOf(after, from) - from);
}

[[nodiscard]] MailComposer::Attachment attachmentIn(const QByteArray& part)
{
    const auto end = part.indexOf("\n\n");
    const QByteArray head = part.left(end);
    const QByteArray content = part.mid(end + 2);
    const bool isEncoded = head.contains("Content-Transfer-Encoding: base64");
    return { between(head, "filename=\"", "\""), isEncoded ? QByteArray::fromBase64(content) : content };
}

/// None if the message is not whole.
[[nodiscard]] std::vector<MailComposer::Attachment> attachmentsIn(const QByteArray& message)
{
    std::vector<MailComposer::Attachment> attachments;
    if (!message.endsWith("--\n"))
        return attachments;
    const QByteArray boundary = "\n--" + between(message, "boundary=\"", "\"");
    for (auto at = message.indexOf(boundary); at >= 0; at = message.indexOf(boundary, at + 1)) {
        const QByteArray part = between(message.mid(at), boundary, boundary);
        if (part.contains("Content-Disposition: attachment"))
            attachments.push_back(attachmentIn(part));
    }
    return attachments;
}

} // namespace

MailComposer::MailComposer(PrivateDesktop& desktop)
    : m_desktop(desktop)
{
}

std::unique_ptr<MailComposer> MailComposer::tryOpen(PrivateDesktop& desktop)
{
    QDir(desktop.home(QStringLiteral("Mail"))).removeRecursively();
    desktop.writeFile(QStringLiteral(".sylpheed-2.0/accountrc"), account);
    desktop.writeFile(QStringLiteral(".sylpheed-2.0/folderlist.xml"), folders);
    for (const char* folder : { "inbox", "sent", "draft", "queue", "trash" })
        QDir().mkpath(desktop.home(QStringLiteral("Mail/") + QLatin1String(folder)));
    std::unique_ptr<MailComposer> composer(new MailComposer(desktop));
    composer->m_program = desktop.start(QStringLiteral("sylpheed"), { QStringLiteral("--compose") });
    composer->m_window = WritingWindow::find(desktop.screen(), "compose");
    if (composer->m_window)
        return composer;
    qWarning("no window for a message: %s", composer->m_program->log().constData());
    return nullptr;
}

QByteArray MailComposer::draft() const
{
    const QDir drafts(m_desktop.home(QStringLiteral("Mail/draft")));
    const QStringList names = drafts.entryList(QDir::Files);
    QFile file(drafts.filePath(names.value(0)));
    return !names.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<MailComposer::Attachment> MailComposer::savedAttachments(std::size_t expected) const
{
    std::vector<Attachment> attachments;
    m_window->click();
    static_cast<void>(waitFor([&] {
        if (!m_window->isAtRest())
            return false;
        m_window->type('s', true);
        return waitFor([&] { return (attachments = attachmentsIn(draft())).size() == expected; }, patience / 10);
    }));
    return attachments;
}

} // namespace nookle::e2e
