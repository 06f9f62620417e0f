// The baseline of a batch: reads the same lines with a widely used JSON library, walks each document and
// writes a short line for it.
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include "BareWalk.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: tarq-batch-baseline FILE\n";
    return 2;
  }
  std::ios::sync_with_stdio(false);
  std::ifstream lines(argv[1]);
  for (std::string line; std::getline(lines, line);) {
    const auto request = nlohmann::json::parse(line);
    const auto& metadata = request["metadata"].get_ref<const std::string&>();
    std::cout << nlohmann::json{{"uri", request["uri"]}, {"present", bareWalk(metadata)}} << '\n';
  }
  return 0;
}
