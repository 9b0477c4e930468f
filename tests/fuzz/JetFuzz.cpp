// Pages of Jet databases: heads, definitions of tables, stored texts.

#include <fstream>
#include <iterator>

#include "fuzz/FuzzDriver.h"
#include "hosts/batch/JetPages.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  if (const auto header = batch::ReadJetHeader(bytes); header && header->PageSize == 0)
    std::abort();
  if (batch::TextOfWideColumn(bytes).size() > size) std::abort();
  for (const bool wide : {true, false}) {
    const batch::JetHeader header{wide, wide ? 4096U : 2048U, 1252, false};
    std::string page = bytes;
    page.resize(header.PageSize);
    const std::string before = page;
    std::size_t memos = 0, changed = 0;
    for (const auto& column : batch::MemosAsBytes(page, header)) memos += column.Memo ? 1 : 0;
    for (std::size_t at = 0; at < page.size(); ++at) changed += page[at] != before[at] ? 1 : 0;
    if (memos != changed) std::abort();
  }
  return 0;
}

std::vector<std::string> FuzzSeeds() {
  std::vector<std::string> seeds;
  for (const char* const name : {"library.mdb", "jet3.mdb"}) {
    std::ifstream in(std::string(TESSEL_SOURCE_DIR "/tests/data/jet/") + name, std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(in), {}};
    const std::size_t size = file.at(0x14) != 0 ? 4096 : 2048;
    seeds.push_back(file.substr(0, batch::JetHeaderSize));
    for (std::size_t at = 3 * size; at < file.size(); at += size) {
      if (file[at] == 2) seeds.push_back(file.substr(at, 400));
    }
  }
  return seeds;
}
