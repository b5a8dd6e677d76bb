#include "ImageDecode.h"
#include "ProcessLimits.h"
#include "RequestSocket.h"

#include <QFile>

#include <unistd.h>

#include <utility>

using namespace nookle;

namespace {

[[nodiscard]] DecodeReply answer(const DecodeRequest& request, FileDescriptor descriptor)
{
    QFile file;
    if (!file.open(descriptor.release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return {};
    return decodeImage(file, request);
}

} // namespace

/// Decodes images for the program at the other end of standard input, until that end is closed.
int main()
{
    limitProcess();
    limitMemory(usualMemory);
    RequestSocket program(FileDescriptor(STDIN_FILENO), DecodeRequest::longest);
    if (!program.send(decoderGreeting))
        return 1;
    while (auto incoming = program.receive()) {
        const auto request = DecodeRequest::decode(incoming->message);
        if (!request || !incoming->file.isOpen())
            return 0;
        if (!program.sendMessage(answer(*request, std::move(incoming->file)).encode()))
            return 1;
    }
    return 0;
}
