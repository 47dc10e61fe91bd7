#pragma once

#include <benchmark/benchmark.h>

namespace bench
{

/// Makes a world, times a step in it and takes it away, once for each iteration. Only the step
/// counts.
template <class Make, class Step>
void timeStep(benchmark::State& state, const Make& make, const Step& step)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto world = make();
        state.ResumeTiming();
        step(*world);
        state.PauseTiming();
        world.reset();
        state.ResumeTiming();
    }
}

}  // namespace bench
