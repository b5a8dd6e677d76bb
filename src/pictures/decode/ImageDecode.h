#pragma once

#include "DecoderProtocol.h"

class QIODevice;

namespace nookle {

/// Processes the image in `file`, a random-access device, as `request` says. The image's format is recognized by its
/// content only. Uses at most a few hundred megabytes for pixels. It may take long, or crash because of a bug in an
/// image library: call it only in a process that does nothing else.
[[nodiscard]] DecodeReply decodeImage(QIODevice& file, const DecodeRequest& request);

} // namespace nookle
