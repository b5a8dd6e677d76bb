#pragma once

#include <cstddef>

namespace nookle {

/// Restricts this process to what a helper needs: few open files, no writing to files, no new privileges. The process
/// is killed when the process that started it ends.
void limitProcess();

/// The address space that is enough for every helper, in bytes.
inline constexpr std::size_t usualMemory = std::size_t(512) << 20;

/// Limits the address space of this process to `bytes`. The limit cannot be raised later.
void limitMemory(std::size_t bytes);

/// Ends this process when it has used `seconds` of processor time in total.
void limitProcessorTime(unsigned seconds);

/// Forbids this process to make other sockets than those of the internet and those that ask the kernel for addresses.
/// The display server and the session bus listen on local (Unix) sockets, and a sandbox that shares the network does
/// not hide them. False if the kernel refuses.
[[nodiscard]] bool allowInternetSocketsOnly();

} // namespace nookle
