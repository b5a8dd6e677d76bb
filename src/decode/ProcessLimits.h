#pragma once

namespace nookle {

/// Takes from this process what decoding an image does not need: much memory, files to write, more rights, and a life
/// beyond that of the process that started it.
void limitProcess();

} // namespace nookle
