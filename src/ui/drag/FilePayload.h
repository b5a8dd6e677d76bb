#pragma once

#include "DragPayload.h"

#include <QUrl>

namespace nookle {

class FileTransfers;

/// What a file or folder offers: its address, and for a file, where the desktop has a service for it, a key by which a
/// sandboxed program gets access. `transfers` must outlive the payload.
[[nodiscard]] DragPayload filePayload(const QUrl& file, FileTransfers& transfers);

} // namespace nookle
