// The files beside a component's that its head draws pictures and texts from ("Form1.frx":0000).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::workspace {

struct Companion {
  /// As the head writes it.
  std::string Name;
  /// Where it lies, and what it holds.
  std::filesystem::path File;
  std::string Bytes;
};

/// The companions of a component's file that exist, each once, read. Fails with a vb::Failure that
/// names the one that can't be read.
[[nodiscard]] std::vector<Companion> CompanionsOf(std::string_view head,
                                                  const std::filesystem::path& file, int codePage);
/// Which companions follow a component's file to another name: those of its name, or also one that
/// is the only one of its kind.
enum class Following { Namesakes, AndLoneOnes };
/// The names that companions have beside `target`; one that doesn't follow keeps its own.
[[nodiscard]] std::vector<std::string> NamesBeside(const std::filesystem::path& target,
                                                   const std::filesystem::path& file,
                                                   const std::vector<Companion>& companions,
                                                   int codePage, Following following);
/// The head with another name of a companion.
[[nodiscard]] std::string WithCompanion(std::string_view head, std::string_view name,
                                        std::string_view fresh);

}  // namespace tessel::workspace
