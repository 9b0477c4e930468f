// The text of modules: lines, members, and the edits that tools make in them.
#include <benchmark/benchmark.h>

#include <random>

#include "hosts/model/LineBuffer.h"
#include "hosts/model/MemberIndex.h"

namespace tessel::model {
namespace {

constexpr int LinesOfMember = 20;

String NameOf(int member) { return u"Member" + vb::Str(member); }

String MemberText(int member) {
  String text = u"' What it does\r\nPrivate Sub " + NameOf(member) + u"(ByVal Index As Long)\r\n";
  for (int line = 3; line < LinesOfMember; ++line) {
    text += u"    If Index = " + vb::Str(line) + u" Then Text = \"a: b\" ' note\r\n";
  }
  return text + u"End Sub";
}

/// A module of `members` members with 20 lines each.
String ModuleText(int members) {
  String text = u"Option Explicit\r\n";
  for (int member = 0; member < members; ++member) text += MemberText(member) + u"\r\n";
  return text;
}

int MembersOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

void CutIntoLines(benchmark::State& state) {
  const String text = ModuleText(MembersOf(state));
  for (auto _ : state) {
    const LineBuffer lines(text);
    benchmark::DoNotOptimize(lines.Count());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size() * 2));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(CutIntoLines)->RangeMultiplier(4)->Range(1000, 50000)->Complexity(benchmark::oN);

/// The peer of CutIntoLines: one string for each line.
void CutIntoStrings(benchmark::State& state) {
  const String text = ModuleText(MembersOf(state));
  for (auto _ : state) {
    const std::vector<String> lines = vb::Split(text, vb::CrLf);
    benchmark::DoNotOptimize(lines.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size() * 2));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(CutIntoStrings)->RangeMultiplier(4)->Range(1000, 50000)->Complexity(benchmark::oN);

void WalkOverTheLines(benchmark::State& state) {
  const LineBuffer lines(ModuleText(MembersOf(state)));
  for (auto _ : state) {
    std::size_t units = 0;
    for (int line = 1; line <= lines.Count(); ++line) units += lines.Line(line).size();
    benchmark::DoNotOptimize(units);
  }
  state.SetItemsProcessed(state.iterations() * lines.Count());
  state.SetComplexityN(state.range(0));
}
BENCHMARK(WalkOverTheLines)->RangeMultiplier(4)->Range(1000, 50000)->Complexity(benchmark::oN);

void InsertAndDeleteAnywhere(benchmark::State& state) {
  LineBuffer lines(ModuleText(MembersOf(state)));
  std::mt19937 random(1);
  const String text = MemberText(0);
  for (auto _ : state) {
    const int at = 1 + static_cast<int>(random() % static_cast<unsigned>(lines.Count()));
    lines.Delete(at, lines.Insert(at, text));
  }
}
BENCHMARK(InsertAndDeleteAnywhere)->RangeMultiplier(4)->Range(1000, 50000);

void ReadTheMembers(benchmark::State& state) {
  const LineBuffer lines(ModuleText(MembersOf(state)));
  for (auto _ : state) {
    MemberIndex index(lines);
    benchmark::DoNotOptimize(index.CountOfDeclarationLines());
  }
  state.SetItemsProcessed(state.iterations() * lines.Count());
  state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadTheMembers)->RangeMultiplier(2)->Range(1000, 20000)->Complexity(benchmark::oN);

void AskForTheMemberOfALine(benchmark::State& state) {
  const LineBuffer lines(ModuleText(MembersOf(state)));
  MemberIndex index(lines);
  std::mt19937 random(1);
  for (auto _ : state) {
    host::vbext_ProcKind kind{};
    const int line = 1 + static_cast<int>(random() % static_cast<unsigned>(lines.Count()));
    benchmark::DoNotOptimize(index.ProcOfLine(line, kind));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(AskForTheMemberOfALine)
    ->RangeMultiplier(2)
    ->Range(1000, 20000)
    ->Complexity(benchmark::oLogN);

/// What a tool does that rewrites each member: asks where it is, takes it out, puts it in again.
void RewriteMembers(benchmark::State& state) {
  const int members = MembersOf(state);
  LineBuffer lines(ModuleText(members));
  MemberIndex index(lines);
  for (auto _ : state) {
    for (int member = 0; member < members; ++member) {
      const MemberIndex::Span span = *index.Find(NameOf(member), host::vbext_pk_Proc);
      lines.Delete(span.Start, span.Count);
      index.Edited(span.Start, span.Count, 0);
      index.Edited(span.Start, 0, lines.Insert(span.Start, MemberText(member)));
    }
    benchmark::DoNotOptimize(index.CountOfDeclarationLines());
  }
  state.SetItemsProcessed(state.iterations() * members);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(RewriteMembers)
    ->RangeMultiplier(2)
    ->Range(1000, 20000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessel::model
