#include "hosts/batch/OutputFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ostream>

#include "batch/Tessel.h"
#include "hosts/batch/Command.h"

namespace tessel::batch {
namespace {

/// A descriptor for the length of a test.
class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : number(open(path.c_str(), flags, 0644)) {}
  ~Descriptor() { close(number); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  const int number;
};

TEST(OutputFile, WritesWhatIsFlushed) {
  const test::Tessel folder;
  const Descriptor file("out", O_CREAT | O_WRONLY);
  OutputFile output(file.number);
  std::ostream out(&output);
  out << "first" << 1 << '\n' << std::flush << "never flushed";
  EXPECT_TRUE(out.good());
  EXPECT_EQ(folder.Folder.Read("out"), "first1\n");
}

TEST(OutputFile, AFullDiskFailsTheStream) {
  const Descriptor full("/dev/full", O_WRONLY);
  OutputFile output(full.number);
  std::ostream out(&output);
  out << "x" << std::flush;
  EXPECT_FALSE(out.good());
  EXPECT_EQ(output.Error(), ENOSPC);
}

// The system's limit of file sizes plays the full disk: the write goes through by half.
TEST(OutputFile, APieceThatDoesNotFitLeavesTheFileAsItWas) {
  const test::Tessel folder;
  const Descriptor file("out", O_CREAT | O_WRONLY);
  OutputFile output(file.number);
  std::ostream out(&output);
  out << "kept\n" << std::flush;
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  out << std::string(1000, 'x') << std::flush;
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, ignored);
  EXPECT_EQ(output.Error(), EFBIG);
  EXPECT_EQ(folder.Folder.Read("out"), "kept\n");
}

class FullDisk : public testing::Test {
 protected:
  /// Runs the program with its output on a full disk.
  int Run(const std::vector<std::string>& words, const std::string& input = {}) {
    const Descriptor full("/dev/full", O_WRONLY);
    OutputFile output(full.number);
    std::ostream out(&output);
    std::istringstream in(input);
    std::ostringstream err;
    const int exit = RunProgram(words, {in, out, err});
    err_ = err.str();
    return exit;
  }
  test::Tessel tessel_;
  std::string err_;
};

TEST_F(FullDisk, IsAnErrorOfEveryCommandThatPrints) {
  const std::string module = "Attribute VB_Name = \"M\"\r\nSub A()\r\nx = 1\r\nEnd Sub\r\n";
  tessel_.Folder.Write("M.bas", module);
  for (const std::vector<std::string>& words : {std::vector<std::string>{"format", "-"},
                                                {"format", "--diff", "M.bas"},
                                                {"format", "--check", "M.bas"},
                                                {"format", "--print-config", "-"},
                                                {"members", "M.bas"},
                                                {"members", "--json", "M.bas"},
                                                {"schemes", "list"},
                                                {"new", "enum", "--name", "E", "--member", "A"},
                                                {"format", "--help"}}) {
    EXPECT_EQ(Run(words, module), Failed) << words[0] << ' ' << words[1];
    EXPECT_NE(err_.find("the output could not be written"), std::string::npos) << err_;
  }
  EXPECT_EQ(tessel_.Folder.Read("M.bas"), module);
}

}  // namespace
}  // namespace tessel::batch
