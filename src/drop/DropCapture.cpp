#include "DropCapture.h"

#include "DropAddresses.h"
#include "DropImage.h"
#include "DropPayload.h"
#include "DropSave.h"
#include "DropText.h"
#include "ImageType.h"

#include <QStringList>

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] QStringList transferFormats()
{
    return { QStringLiteral("application/vnd.portal.filetransfer"), QStringLiteral("application/vnd.portal.files") };
}

/// Some compositors end a program's connection over a longer name.
inline constexpr qsizetype longestFormat = 1000;

/// Of pictures, of their names and of texts each. Some sources list types that they do not deliver.
inline constexpr qsizetype mostOfOneKind = 4;

[[nodiscard]] QStringList firstOf(QStringList formats, qsizetype most, bool (*isOfKind)(const QString& format))
{
    formats.removeIf([&](const QString& format) { return !isOfKind(format); });
    return formats.mid(0, most);
}

/// Whether there is only one such format.
[[nodiscard]] bool hasNameOfItsOwn(const QString& format)
{
    return isAddressFormat(format) || isTitleFormat(format) || isPageFormat(format)
        || transferFormats().contains(format);
}

/// The formats that the rules have a use for, in the source's order. A source may offer thousands, and each that is
/// read costs time, under some compositors a process, too.
[[nodiscard]] QStringList boundedFormats(QStringList formats)
{
    formats.removeDuplicates();
    formats.removeIf([](const QString& format) { return format.isEmpty() || format.size() > longestFormat; });
    const QStringList chosen = namedImageFormats(formats).mid(0, mostOfOneKind)
        + textFormats(formats).mid(0, mostOfOneKind) + firstOf(formats, mostOfOneKind, &isImageNameFormat)
        + firstOf(formats, 1, &isUnnamedFormat);
    formats.removeIf([&](const QString& format) { return !hasNameOfItsOwn(format) && !chosen.contains(format); });
    return formats;
}

/// A drop with no more formats than the rules have a use for.
class BoundedPayload final : public DropPayload {
public:
    /// `payload` must outlive this object.
    explicit BoundedPayload(const DropPayload& payload)
        : m_payload(payload)
        , m_formats(boundedFormats(payload.formats()))
    {
    }

    [[nodiscard]] QStringList formats() const override { return m_formats; }
    void expect(const QStringList& formats) const override { m_payload.expect(formats); }
    [[nodiscard]] QByteArray data(const QString& format) const override { return m_payload.data(format); }
    [[nodiscard]] QByteArray suggestedName() const override { return m_payload.suggestedName(); }
    [[nodiscard]] bool canSave() const override { return m_payload.canSave(); }
    [[nodiscard]] SaveAnswer save(const QByteArray& path) const override { return m_payload.save(path); }

private:
    const DropPayload& m_payload;
    QStringList m_formats;
};

[[nodiscard]] QByteArray loadTransferKey(const DropPayload& payload)
{
    const QStringList formats = payload.formats();
    for (const QString& format : transferFormats()) {
        if (!formats.contains(format))
            continue;
        QByteArray key = payload.data(format);
        key.truncate(key.indexOf('\0') < 0 ? key.size() : key.indexOf('\0'));
        if (!key.isEmpty())
            return key;
    }
    return {};
}

/// A drop of a file is not an image, even if the source also offers a picture of it. One picture cannot stand for
/// several addresses.
[[nodiscard]] bool canBeImage(const std::vector<DroppedAddress>& addresses)
{
    return addresses.empty() || (addresses.size() == 1 && !addresses.front().isFile());
}

/// Whether a format carries something that the shelf takes.
[[nodiscard]] bool isItemFormat(const QString& format)
{
    return isAddressFormat(format) || isImageFormat(format) || isTextFormat(format)
        || transferFormats().contains(format);
}

/// The formats that may be read of a drop: of several that hold the same, only the best one; of pictures the best two,
/// because some sources list types that they do not deliver.
[[nodiscard]] QStringList usedFormats(const QStringList& formats)
{
    const QStringList images = namedImageFormats(formats).mid(0, 2);
    const QString text = textFormats(formats).value(0);
    QStringList used = formats;
    used.removeIf([&](const QString& format) {
        const bool isUsed = isAddressFormat(format) || isTitleFormat(format) || isUnnamedFormat(format)
            || isImageNameFormat(format) || transferFormats().contains(format);
        return format.isEmpty() || (!isUsed && !images.contains(format) && format != text);
    });
    return used;
}

/// Bytes that are not delivered yet may be any.
[[nodiscard]] bool mayBeImage(const QByteArray& bytes)
{
    return bytes.isEmpty() || imageType(bytes);
}

} // namespace

bool offersDropItems(const DropPayload& offered)
{
    const BoundedPayload payload(offered);
    const QStringList formats = payload.formats();
    return std::any_of(formats.begin(), formats.end(), isItemFormat) || canSaveDrop(payload);
}

bool canTakeDrop(const DropPayload& offered)
{
    const BoundedPayload payload(offered);
    const QStringList formats = payload.formats();
    const bool isSure = canSaveDrop(payload) || std::any_of(formats.begin(), formats.end(), [](const QString& format) {
                            return isItemFormat(format) && !isUnnamedFormat(format);
                        });
    if (isSure)
        return true;
    return std::any_of(formats.begin(), formats.end(), [&](const QString& format) {
        return isUnnamedFormat(format) && mayBeImage(payload.data(format));
    });
}

CapturedDrop captureDrop(const DropPayload& offered)
{
    const BoundedPayload payload(offered);
    payload.expect(usedFormats(payload.formats()));
    CapturedDrop drop;
    drop.transferKey = loadTransferKey(payload);
    std::vector<DroppedAddress> addresses = loadDropAddresses(payload);
    auto image = canBeImage(addresses) ? loadDropImage(payload) : std::nullopt;
    if (image) {
        auto address = addresses.empty() ? std::nullopt : std::optional(std::move(addresses.front()));
        drop.items.push_back({ .address = std::move(address), .image = std::move(image), .text = {} });
        return drop;
    }
    if (addresses.size() == 1 && !addresses.front().isFile())
        addresses.front().title = loadDropTitle(payload, addresses.front().url);
    for (DroppedAddress& address : addresses)
        drop.items.push_back({ .address = std::move(address), .image = {}, .text = {} });
    if (!drop.items.empty() || !drop.transferKey.isEmpty())
        return drop;
    drop.savedInto = saveDrop(payload);
    if (drop.savedInto)
        return drop;
    if (auto text = loadDropText(payload))
        drop.items.push_back({ .address = {}, .image = {}, .text = std::move(text) });
    return drop;
}

} // namespace nookle
