#include "ShelfFolder.h"
#include "InstructionCount.h"
#include "ShelfIndex.h"

#include <benchmark/benchmark.h>

namespace nookle {

namespace {

void encodeIndex(benchmark::State& state)
{
    const ShelfIndex index{ .items = ShelfFolder::mixedItems(static_cast<int>(state.range(0))) };
    for (auto _ : state) {
        const InstructionCount count(state, "encodeIndex");
        benchmark::DoNotOptimize(index.encode());
    }
}

void decodeIndex(benchmark::State& state)
{
    const QByteArray bytes = ShelfIndex{ .items = ShelfFolder::mixedItems(static_cast<int>(state.range(0))) }.encode();
    for (auto _ : state) {
        const InstructionCount count(state, "decodeIndex");
        benchmark::DoNotOptimize(ShelfIndex::decode(bytes));
    }
}

BENCHMARK(encodeIndex)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeIndex)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace nookle
