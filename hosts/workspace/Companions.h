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
/// The names that companions have beside `target`: one that is named by its component's file, or is
/// the only one of its kind, takes the new name, another keeps its own.
[[nodiscard]] std::vector<std::string> NamesBeside(const std::filesystem::path& target,
                                                   const std::filesystem::path& file,
                                                   const std::vector<Companion>& companions,
                                                   int codePage);
/// The head with another name of a companion.
[[nodiscard]] std::string WithCompanion(std::string_view head, std::string_view name,
                                        std::string_view fresh);

}  // namespace tessel::workspace
