#pragma once

#include <QMimeData>
#include <QSet>

/// A payload that does not come as it should. It writes into the pipe that the receiver in a Wayland session has sent,
/// beside the toolkit, which writes everything at once.
class UnboundedPayload final : public QMimeData {
public:
    enum class Manner {
        /// Writes as much and as fast as it can.
        endless,
        /// Writes a byte now and then.
        dripping,
        /// Writes the whole in pieces, with pauses.
        inPieces,
    };

    /// `format` and `content` are what it offers. Once the receiver reads no more, the number of bytes that were
    /// written goes into the file `result`.
    UnboundedPayload(Manner manner, QString format, QByteArray content, QString result);

    [[nodiscard]] QStringList formats() const override { return { m_format }; }
    [[nodiscard]] bool hasFormat(const QString& format) const override { return format == m_format; }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override;

private:
    [[nodiscard]] QByteArray sendPieces(int pipe) const;

    Manner m_manner;
    QString m_format;
    QByteArray m_content;
    QString m_result;
    /// Those that were there before the drag.
    QSet<int> m_otherPipes;
};
