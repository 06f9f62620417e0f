#include "DescriptionFolder.h"

#include <cstdlib>
#include <fstream>

#include "CommandError.h"

namespace fs = std::filesystem;

DescriptionFolder::DescriptionFolder() {
  std::string pattern = (fs::temp_directory_path() / "tarq-dmr-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw CommandError("cannot create a folder " + pattern);
  path_ = pattern;
}

DescriptionFolder::~DescriptionFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void DescriptionFolder::write(const std::string& name, const std::string& content) {
  std::ofstream file(path_ / name, std::ios::binary);
  file << content;
  file.close();
  if (!file) throw CommandError("cannot write " + (path_ / name).string());
}

void DescriptionFolder::copyFrom(const fs::path& folder) {
  std::error_code error;
  fs::copy(folder, path_, error);
  if (error) throw CommandError("cannot copy " + folder.string() + ": " + error.message());
}
