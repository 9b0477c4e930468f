// The coloured output, beside 302 plain replacements.

#include <benchmark/benchmark.h>

#include "GeneratedCode.h"
#include "presentation/PlainMakeRTF.h"

namespace {

using namespace tessel;

void Make(benchmark::State& state) {
  const String text = vb::FromUtf8(bench::Code(static_cast<int>(state.range(0))));
  for (auto _ : state) benchmark::DoNotOptimize(mCodeConverter::MakeRTF(text, 0));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(Make)
    ->RangeMultiplier(10)
    ->Range(200, 20000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

/// The passes over the keywords alone, which is what the fast version is measured against.
void PlainPasses(benchmark::State& state) {
  const String text =
      vb::Replace(vb::FromUtf8(bench::Code(static_cast<int>(state.range(0)))), vb::CrLf, u"\r\nk ");
  for (auto _ : state) {
    String work = text;
    for (const StringView entry : mCodeConverter::Keywords())
      mCodeConverter::PlainKeyword(work, entry);
    benchmark::DoNotOptimize(work);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(PlainPasses)
    ->RangeMultiplier(10)
    ->Range(200, 20000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

}  // namespace
