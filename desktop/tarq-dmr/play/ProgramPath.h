#ifndef TARQ_DMR_PROGRAM_PATH_H_
#define TARQ_DMR_PROGRAM_PATH_H_

#include <filesystem>
#include <string>

// Returns: the file of the program that the shell would run, without symbolic links; empty: there is none.
std::filesystem::path findOnPath(const std::string& program);

#endif  // TARQ_DMR_PROGRAM_PATH_H_
