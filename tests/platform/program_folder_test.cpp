#include "platform/program_folder.h"

#include "platform/paths.h"

#include <gtest/gtest.h>

namespace tamarind::platform {
namespace {

TEST(ProgramFolder, IsTheExecutablesWhereThePersonMayWriteIt) { EXPECT_EQ(ProgramFolder(), ExecutableFolder()); }

} // namespace
} // namespace tamarind::platform
