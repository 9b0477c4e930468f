// The formatter's engine, beside splitting and joining the same text.

#include <benchmark/benchmark.h>

#include "GeneratedCode.h"
#include "hosts/memory/UnattendedPlatform.h"
#include "support/Rules.h"

namespace {

using namespace tessel;

void Format(benchmark::State& state) {
  memory::UnattendedPlatform services;
  const platform::ScopedPlatform scope(services);
  mFormatText::FormatRun format = test::DefaultRun();
  const String text = vb::FromUtf8(bench::Code(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    benchmark::DoNotOptimize(mFormatText::FormatTextComponent(format, text));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(Format)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

void SplitAndJoin(benchmark::State& state) {
  const String text = vb::FromUtf8(bench::Code(static_cast<int>(state.range(0))));
  for (auto _ : state) benchmark::DoNotOptimize(vb::Join(vb::Split(text, vb::CrLf), vb::CrLf));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(SplitAndJoin)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

}  // namespace
