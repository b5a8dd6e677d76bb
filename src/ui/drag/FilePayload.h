#pragma once

#include "DragPayload.h"

#include <QUrl>

namespace nookle {

class FileTransfers;

/// The formats of a file or folder: its address, and for a file also a key with which a sandboxed program gets access,
/// if the desktop has a service for that. `transfers` must outlive the payload.
[[nodiscard]] DragPayload filePayload(const QUrl& file, FileTransfers& transfers);

} // namespace nookle
