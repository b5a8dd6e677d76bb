#include "InstructionCount.h"

#include <valgrind/callgrind.h>

#include <string>

namespace nookle {

InstructionCount::InstructionCount(const benchmark::State& state, const char* name)
    : m_state(state)
    , m_name(name)
{
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
}

InstructionCount::~InstructionCount()
{
    CALLGRIND_TOGGLE_COLLECT;
    const std::string name = std::string(m_name) + '/' + std::to_string(m_state.range(0));
    CALLGRIND_DUMP_STATS_AT(name.c_str());
}

} // namespace nookle
