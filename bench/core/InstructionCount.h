#pragma once

#include <benchmark/benchmark.h>

namespace nookle {

/// When the benchmarks run under callgrind, counts the instructions that are executed during its life, and has them
/// written down under the benchmark's name with its first two arguments. Costs next to nothing otherwise.
class InstructionCount {
public:
    InstructionCount(const benchmark::State& state, const char* name);
    ~InstructionCount();
    InstructionCount(const InstructionCount&) = delete;
    InstructionCount& operator=(const InstructionCount&) = delete;

private:
    const benchmark::State& m_state;
    const char* m_name;
};

} // namespace nookle
