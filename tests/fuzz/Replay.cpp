// Lets a fuzz target look at each file of a folder, where it is built without the fuzzer.
// Usage: TARGET FOLDER

#include <QByteArray>
#include <QDirIterator>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    const QString folder = QFile::decodeName(argc == 2 ? argv[1] : "");
    int count = 0;
    for (QDirIterator files(folder, QDir::Files); files.hasNext(); ++count) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            return EXIT_FAILURE;
        const QByteArray input = file.readAll();
        // Told before, so that the last line names the input that takes the target down.
        std::printf("%s\n", QFile::encodeName(file.fileName()).constData());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                               static_cast<std::size_t>(input.size()));
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
