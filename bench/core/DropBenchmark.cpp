#include "DropCapture.h"
#include "InstructionCount.h"
#include "DropHandler.h"
#include "FakeDropPayload.h"
#include "FakeFileTransfers.h"
#include "ShelfFolder.h"

#include <benchmark/benchmark.h>

namespace nookle {

namespace {

[[nodiscard]] FakeDropPayload payloadOf(const QList<QUrl>& urls)
{
    QByteArray list;
    for (const QUrl& url : urls)
        list += url.toEncoded() + "\r\n";
    FakeDropPayload payload;
    payload.offer("text/uri-list", list);
    return payload;
}

/// What happens within the drop, while the source waits.
void captureFiles(benchmark::State& state)
{
    const ShelfFolder folder(0);
    const FakeDropPayload payload = payloadOf(folder.urls(0, static_cast<int>(state.range(0))));
    for (auto _ : state) {
        const InstructionCount count(state, "captureFiles");
        benchmark::DoNotOptimize(captureDrop(payload));
    }
}

/// What happens after it, up to the changed shelf.
void handleFiles(benchmark::State& state)
{
    const auto count = static_cast<int>(state.range(0));
    ShelfFolder folder(count);
    const FakeDropPayload payload = payloadOf(folder.urls(0, count));
    FakeFileTransfers transfers;
    for (auto _ : state) {
        state.PauseTiming();
        FakeMainQueue queue;
        auto store = folder.open();
        DropHandler handler(*store, queue, transfers);
        handler.handleDrop(captureDrop(payload).items);
        state.ResumeTiming();
        {
            const InstructionCount instructions(state, "handleFiles");
            queue.runPosted();
        }
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
}

BENCHMARK(captureFiles)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(handleFiles)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace nookle
