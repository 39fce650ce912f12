#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cli/run_cli.h"

int main(int argc, char** argv) {
  try {
    return zando::RunCli(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
  } catch (const std::exception& error) {
    std::cerr << "zando-cli: " << error.what() << '\n';
    return zando::kCliFailed;
  }
}
