#pragma once

#include "DragPayload.h"

#include <QList>
#include <QUrl>

namespace nookle {

class FileTransfers;

/// The formats of a file or folder: its address, and for a file also a key with which a sandboxed program gets access,
/// if the desktop has a service for that. `transfers` must outlive the payload.
[[nodiscard]] DragPayload filePayload(const QUrl& file, FileTransfers& transfers);

/// Adds the list of `files` to the payload. A key comes with it only if it gives access to all of them: a program that
/// takes the key does not look at the addresses. `transfers` must outlive the payload.
void addFiles(DragPayload& payload, const QList<QUrl>& files, FileTransfers& transfers);

} // namespace nookle
