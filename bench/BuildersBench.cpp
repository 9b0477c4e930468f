// A thousand properties into one module: the whole of `tessel new`, beside opening the project it
// leaves, changing a line and saving it.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <sstream>
#include <stdexcept>

#include "hosts/batch/NewCommand.h"
#include "hosts/memory/UnattendedPlatform.h"
#include "hosts/workspace/Workspace.h"
#include "store/Seeds.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace tessel;

std::string ListOf(std::int64_t count) {
  std::string list = "[";
  for (std::int64_t number = 0; number < count; ++number) {
    if (number > 0) list += ',';
    list += R"({"name":"Property)" + std::to_string(number) + R"(","type":"Long"})";
  }
  return list + "]";
}

void WriteProject(const test::TemporaryFolder& folder) {
  folder.Write("M.bas", "Attribute VB_Name = \"M\"\r\nOption Explicit\r\n");
  folder.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
}

/// The types of the program are looked up among those that are delivered.
void WriteProgram(const test::TemporaryFolder& folder) {
  memory::UnattendedPlatform services;
  store::WriteStandardDatabases(folder.Path() / "data" / "Data", services.Files());
}

void Insert(const test::TemporaryFolder& folder, const std::string& list) {
  std::istringstream in(list);
  std::ostringstream out, err;
  batch::NewRequest request;
  request.Kind = "property";
  request.From = "-";
  request.Into = folder.Path() / "P.vbp";
  request.Component = "M";
  request.Data = folder.Path() / "data";
  if (batch::RunNew(request, in, out, err) != 0) throw std::runtime_error(err.str());
}

/// A command is a process of its own and begins with no memory. Here the sizes that ran before
/// would decide which benchmark gets its memory without a page fault.
void GiveMemoryBack() { malloc_trim(0); }

void NewProperties(benchmark::State& state) {
  const std::string list = ListOf(state.range(0));
  const test::TemporaryFolder folder;
  WriteProgram(folder);
  for (auto _ : state) {
    state.PauseTiming();
    WriteProject(folder);
    GiveMemoryBack();
    state.ResumeTiming();
    Insert(folder, list);
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(NewProperties)
    ->Arg(250)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Arg(4000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

void ReadAndWriteTheirProject(benchmark::State& state) {
  const test::TemporaryFolder folder;
  WriteProgram(folder);
  WriteProject(folder);
  Insert(folder, ListOf(state.range(0)));
  memory::UnattendedPlatform services;
  const platform::ScopedPlatform scope(services);
  for (auto _ : state) {
    state.PauseTiming();
    GiveMemoryBack();
    state.ResumeTiming();
    workspace::Workspace environment(services);
    environment.Open(folder.Path() / "P.vbp");
    const auto module = environment.Component(u"M")->CodeModule();
    module->InsertLines(module->CountOfLines() + 1, u"' changed");
    environment.Save();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadAndWriteTheirProject)
    ->Arg(250)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Arg(4000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

}  // namespace
