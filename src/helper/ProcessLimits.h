#pragma once

#include <cstddef>

namespace nookle {

/// Takes from this process what no helper needs: many files, files to write, more rights, and a life beyond that of the
/// process that started it.
void limitProcess();

/// What every helper can work with.
inline constexpr std::size_t usualMemory = std::size_t(512) << 20;

/// Takes from this process all addresses but for so many bytes. It can have no more of them later.
void limitMemory(std::size_t bytes);

/// Ends this process when it has used the processor for so long altogether.
void limitProcessorTime(unsigned seconds);

/// Leaves this process the internet's sockets and no others: a display and a session bus listen on local ones, which no
/// sandbox hides as long as it shares the network. False where the kernel refuses.
[[nodiscard]] bool forbidLocalSockets();

} // namespace nookle
