// What a run changed in meaning, beside the reading of the same text into tokens.

#include <benchmark/benchmark.h>

#include "GeneratedCode.h"
#include "hosts/review/CodeComparison.h"
#include "hosts/review/CodeTokens.h"

namespace {

using namespace tessel;

/// A text of so many lines as it is, and with its lines moved to the right.
struct Texts {
  explicit Texts(int lines) : Before(vb::FromUtf8(bench::Code(lines))) {
    After = vb::Replace(Before, vb::CrLf, u"\r\n    ");
  }
  String Before, After;
};

void ReadTwoTexts(benchmark::State& state) {
  const Texts texts(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(review::ReadTokens(texts.Before, {}));
    benchmark::DoNotOptimize(review::ReadTokens(texts.After, {}));
  }
  state.SetComplexityN(state.range(0));
}

template <auto Compare>
void CompareTexts(benchmark::State& state) {
  const Texts texts(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(Compare(texts.Before, texts.After, review::MostDifferences));
  }
  state.SetComplexityN(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* one) {
  one->RangeMultiplier(10)
      ->Range(10000, 1000000)
      ->Complexity(benchmark::oN)
      ->Unit(benchmark::kMillisecond);
}
BENCHMARK(ReadTwoTexts)->Apply(Sizes);
BENCHMARK(CompareTexts<review::CompareCode>)->Name("CompareLayout")->Apply(Sizes);
BENCHMARK(CompareTexts<review::CompareHandlers>)->Name("CompareHandlers")->Apply(Sizes);

}  // namespace
