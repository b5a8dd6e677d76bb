#include "ImageDecode.h"
#include "ProcessLimits.h"
#include "RequestSocket.h"

#include <QFile>

#include <unistd.h>

#include <utility>

using namespace nookle;

namespace {

[[nodiscard]] DecodeReply answer(RequestSocket::Incoming incoming)
{
    QFile file;
    if (!file.open(incoming.file.release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return {};
    return decodeImage(file, incoming.request);
}

} // namespace

/// Decodes images for the program that started it, which is at the other end of standard input, until that closes it.
int main()
{
    limitProcess();
    RequestSocket program((FileDescriptor(STDIN_FILENO)));
    if (!program.send(decoderGreeting))
        return 1;
    while (auto incoming = program.receive()) {
        if (!program.send(answer(std::move(*incoming)).encode()))
            return 1;
    }
    return 0;
}
