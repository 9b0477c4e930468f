// The `tessel` command.

#include <unistd.h>

#include <cstring>
#include <iostream>

#include "hosts/batch/Command.h"
#include "hosts/batch/OutputFile.h"

int main(int argc, char** argv) {
  using namespace tessel::batch;
  std::ios::sync_with_stdio(false);
  OutputFile file(STDOUT_FILENO);
  std::ostream out(&file);
  const int exit =
      RunProgram(std::vector<std::string>(argv + 1, argv + argc), {std::cin, out, std::cerr});
  if (file.Error() != 0)
    std::cerr << "tessel: standard output: " << std::strerror(file.Error()) << '\n';
  return exit;
}
