#include "FakeFileReferences.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"
#include "FileUrl.h"
#include "ShelfStore.h"

#include <QCoreApplication>

#include <cstdio>

/// Obeys the lines of its standard input: "text WORD" adds a text and saves, "image PATH" takes an image over and
/// saves, "sweep" removes orphans as a start two days later does. Answers each with the number of items.
int main(int argc, char** argv)
{
    using namespace nookle;
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: ShelfSaver FOLDER");
    FakeFileReferences references;
    FakeTrash trash;
    FakeLinkMetadataService metadata;
    FakeMainQueue queue;
    ShelfStore::Environment environment;
    environment.moveToTrash = [&](const QUrl& url) { return trash.moveToTrash(url); };
    environment.fetchesLinkMetadata = false;
    int days = 0;
    environment.now = [&] { return QDateTime::currentDateTimeUtc().addDays(days); };
    ShelfStore store(fileUrl(argv[1]), environment, references, trash, metadata, queue);

    std::array<char, 4096> line{};
    while (std::fgets(line.data(), line.size(), stdin) != nullptr) {
        const QByteArray command = QByteArray(line.data()).trimmed();
        const QByteArray argument = command.mid(command.indexOf(' ') + 1);
        if (command.startsWith("text ")) {
            store.addText(QString::fromUtf8(argument));
        } else if (command.startsWith("image ")) {
            store.addImage(fileUrl(argument));
        } else {
            days = 2;
            store.removeOrphans();
        }
        queue.advance(1);
        std::printf("%lld\n", static_cast<long long>(store.items().size()));
        std::fflush(stdout);
    }
    return 0;
}
