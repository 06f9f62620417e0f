#include <gtest/gtest.h>

#include "RendererProgram.h"

namespace {

class RendererOnNetwork : public testing::Environment {
 public:
  void SetUp() override {
    if (!Network::make()) GTEST_SKIP() << "no network namespace can be made here";
    RendererProgram::shared();
  }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new RendererOnNetwork);  // GoogleTest deletes it
  return RUN_ALL_TESTS();
}
