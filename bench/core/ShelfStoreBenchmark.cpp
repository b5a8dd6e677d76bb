#include "ShelfFolder.h"

#include "InstructionCount.h"
#include <benchmark/benchmark.h>

namespace nookle {

namespace {

void addFiles(benchmark::State& state)
{
    const auto present = static_cast<int>(state.range(0));
    const auto added = static_cast<int>(state.range(1));
    ShelfFolder folder(present + added);
    const QList<QUrl> urls = folder.urls(present, added);
    for (auto _ : state) {
        state.PauseTiming();
        auto store = folder.open();
        store->addFiles(folder.urls(0, present));
        state.ResumeTiming();
        {
            const InstructionCount count(state, "addFiles");
            store->addFiles(urls);
        }
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
}

void refreshFiles(benchmark::State& state)
{
    const auto count = static_cast<int>(state.range(0));
    ShelfFolder folder(count);
    const auto store = folder.open();
    store->addFiles(folder.urls(0, count));
    for (auto _ : state) {
        const InstructionCount instructions(state, "refreshFiles");
        store->refreshFiles();
    }
}

void saveStore(benchmark::State& state)
{
    const auto count = static_cast<int>(state.range(0));
    ShelfFolder folder(count);
    const auto store = folder.open();
    store->addFiles(folder.urls(0, count));
    for (auto _ : state) {
        const InstructionCount instructions(state, "saveStore");
        store->saveNow();
    }
}

void loadStore(benchmark::State& state)
{
    const auto count = static_cast<int>(state.range(0));
    ShelfFolder folder(count);
    auto store = folder.open();
    store->addFiles(folder.urls(0, count));
    store->saveNow();
    for (auto _ : state) {
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
        const InstructionCount instructions(state, "loadStore");
        store = folder.open();
    }
}

void undoRemove(benchmark::State& state)
{
    const auto count = static_cast<int>(state.range(0));
    ShelfFolder folder(count);
    const auto store = folder.open();
    store->addFiles(folder.urls(0, count));
    for (auto _ : state) {
        state.PauseTiming();
        store->removeUnpinned();
        state.ResumeTiming();
        const InstructionCount instructions(state, "undoRemove");
        store->undoRemove();
    }
}

BENCHMARK(addFiles)
    ->Args({ 0, 10'000 })
    ->Args({ 10'000, 10'000 })
    ->Args({ 100'000, 10'000 })
    ->Args({ 0, 100'000 })
    ->Unit(benchmark::kMillisecond);
BENCHMARK(refreshFiles)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveStore)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(undoRemove)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(loadStore)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace nookle
