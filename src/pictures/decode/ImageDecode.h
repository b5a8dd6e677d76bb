#pragma once

#include "DecoderProtocol.h"

class QIODevice;

namespace nookle {

/// Does what `request` asks with the image in `file`, a device of random access. Content alone decides what kind of
/// image it is. Uses no more memory for pixels than some hundred megabytes, but may take long, or die of a defect in a
/// decoder: not for a process that has anything else to do.
[[nodiscard]] DecodeReply decodeImage(QIODevice& file, const DecodeRequest& request);

} // namespace nookle
