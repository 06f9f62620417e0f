#ifndef TARQ_DESCRIPTION_FOLDER_H_
#define TARQ_DESCRIPTION_FOLDER_H_

#include <filesystem>
#include <string>

// A folder of its own, for this user only, that exists as long as this object: all of it is served to the network.
// Errors: CommandError when it cannot be written.
class DescriptionFolder {
 public:
  DescriptionFolder();
  ~DescriptionFolder();
  DescriptionFolder(const DescriptionFolder&) = delete;
  DescriptionFolder& operator=(const DescriptionFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  void write(const std::string& name, const std::string& content);
  void copyFrom(const std::filesystem::path& folder);  // every file in it

 private:
  std::filesystem::path path_;
};

#endif  // TARQ_DESCRIPTION_FOLDER_H_
