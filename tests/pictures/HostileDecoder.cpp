#include "DecoderProtocol.h"
#include "RequestSocket.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

using namespace nookle;

namespace {

// What an image that has taken over the decoder would do to the file that it came in.
void attack(int descriptor)
{
    const std::string name = "/proc/self/fd/" + std::to_string(descriptor);
    const FileDescriptor anew(::open(name.c_str(), O_WRONLY));
    static_cast<void>(::write(anew.get(), "changed", 7));
    static_cast<void>(::truncate(name.c_str(), 3));
    static_cast<void>(::ftruncate(descriptor, 3));
    static_cast<void>(::fchmod(descriptor, 0666));
}

} // namespace

/// Speaks as the decoder does, attacks each file that it gets, and then answers with one pixel.
int main()
{
    RequestSocket program(FileDescriptor(STDIN_FILENO), DecodeRequest::longest);
    if (!program.send(decoderGreeting))
        return 1;
    while (const auto incoming = program.receive()) {
        attack(incoming->file.get());
        if (!program.sendMessage(DecodeReply{ 1, 1, QByteArray(4, '\0'), QByteArray() }.encode()))
            return 1;
    }
    return 0;
}
