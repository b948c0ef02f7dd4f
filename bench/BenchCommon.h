// The loop shared by every benchmark: one call of the operation per array element, results
// stored to an output array, memory clobbered after each pass so that nothing is hoisted out of
// the timed loop or folded away. Items are operations, so the rate converts to time per
// operation.
#ifndef ZTLINEAR_BENCH_BENCHCOMMON_H
#define ZTLINEAR_BENCH_BENCHCOMMON_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace bench {

// out[i] = op(i) for every i, once per benchmark iteration.
template <class Out, class Op>
void RunArray(benchmark::State& state, std::vector<Out>& out, Op op) {
    const std::size_t n = out.size();
    benchmark::DoNotOptimize(out.data());
    for (auto _ : state) {
        for (std::size_t i = 0; i < n; ++i) out[i] = op(i);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(n));
}

}  // namespace bench

// Registers fn under "operation/library-type".
#define ZT_BENCH(fn, name) BENCHMARK(fn)->Name(name)

#endif
