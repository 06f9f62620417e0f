#include "ProgramPath.h"

#include <cstdlib>
#include <sstream>

namespace fs = std::filesystem;

fs::path findOnPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  std::error_code error;
  for (std::string folder; std::getline(folders, folder, ':');) {
    fs::path file = fs::canonical(fs::path(folder) / program, error);
    if (!error) return file;
  }
  return {};
}
