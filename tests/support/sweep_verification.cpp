// With OV_MODEL_VERIFY_SWEEPS in the environment every sweep of every test runs the steps that it leaves out all the
// same, and ends the process where one does anything.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tree/swept_list.h"

namespace ov::testing {
namespace {

class VerifiedSweeps : public ::testing::Environment {
public:
    void SetUp() override { SweepVerification::isOn = std::getenv("OV_MODEL_VERIFY_SWEEPS") != nullptr; }
};

[[maybe_unused]] ::testing::Environment* const gVerifiedSweeps =
    ::testing::AddGlobalTestEnvironment(new VerifiedSweeps);

}  // namespace
}  // namespace ov::testing
