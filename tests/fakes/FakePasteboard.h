#pragma once

#include "FakeDropPayload.h"
#include "MainQueue.h"
#include "Pasteboard.h"

#include <QStringList>

namespace nookle {

/// Answers by the payload of a test, some time after each question.
class FakeClipboardContent final : public ClipboardContent {
public:
    /// Both must outlive the content.
    FakeClipboardContent(MainQueue& queue, double delay, const FakeDropPayload& payload)
        : m_queue(queue)
        , m_delay(delay)
        , m_payload(payload)
    {
    }

    void askFormats(Formats answer) override
    {
        m_answer = m_queue.after(m_delay, [this, answer = std::move(answer)] { answer(m_payload.formats()); });
    }
    void askData(const QString& format, Bytes answer) override
    {
        m_answer =
            m_queue.after(m_delay, [this, format, answer = std::move(answer)] { answer(m_payload.data(format)); });
    }

private:
    MainQueue& m_queue;
    double m_delay;
    const FakeDropPayload& m_payload;
    std::unique_ptr<Cancellable> m_answer;
};

/// Holds what a test gives it, and remembers every operation as one line.
class FakePasteboard final : public Pasteboard {
public:
    explicit FakePasteboard(MainQueue& queue)
        : m_queue(queue)
    {
    }

    [[nodiscard]] std::unique_ptr<ClipboardContent> contents() override
    {
        return std::make_unique<FakeClipboardContent>(m_queue, delay, payload);
    }
    [[nodiscard]] std::unique_ptr<ClipboardContent> selection() override
    {
        return std::make_unique<FakeClipboardContent>(m_queue, delay, selected);
    }
    [[nodiscard]] QString selectionObstacle() const override { return obstacle; }
    void clear() override { operations.append(QStringLiteral("clear")); }
    void writeFile(const QUrl& file) override { operations.append(QStringLiteral("file ") + file.toString()); }
    void writeText(const QString& text) override { operations.append(QStringLiteral("text ") + text); }
    void writeLink(const QString& address) override { operations.append(QStringLiteral("link ") + address); }
    void writeAddresses(const QStringList& addresses, const QString& text) override
    {
        operations.append(QStringLiteral("addresses %1 text %2").arg(addresses.join(QLatin1Char(' ')), text));
    }
    void writeImage(const QUrl& file) override { operations.append(QStringLiteral("image ") + file.toString()); }

    /// In seconds, how long the owner takes for each answer.
    double delay = 0;
    FakeDropPayload payload;
    FakeDropPayload selected;
    QString obstacle;
    QStringList operations;

private:
    MainQueue& m_queue;
};

} // namespace nookle
