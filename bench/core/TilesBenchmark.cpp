#include "InstructionCount.h"
#include "ShelfFolder.h"
#include "TileHeights.h"
#include "TileMetrics.h"

#include <benchmark/benchmark.h>

namespace nookle {

namespace {

inline constexpr int tileWidth = 120;

void measureTiles(benchmark::State& state)
{
    const QList<ShelfItem> items = ShelfFolder::mixedItems(static_cast<int>(state.range(0)));
    const TileMetrics metrics;
    for (auto _ : state) {
        TileHeights heights(metrics);
        const InstructionCount count(state, "measureTiles");
        for (const ShelfItem& item : items)
            benchmark::DoNotOptimize(heights.height(item, false, tileWidth));
    }
}

void measureTilesAgain(benchmark::State& state)
{
    const QList<ShelfItem> items = ShelfFolder::mixedItems(static_cast<int>(state.range(0)));
    const TileMetrics metrics;
    TileHeights heights(metrics);
    for (auto _ : state) {
        const InstructionCount count(state, "measureTilesAgain");
        for (const ShelfItem& item : items)
            benchmark::DoNotOptimize(heights.height(item, false, tileWidth));
    }
}

BENCHMARK(measureTiles)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(measureTilesAgain)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace nookle
