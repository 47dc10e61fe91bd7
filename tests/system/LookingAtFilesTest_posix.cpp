#include "system/DiskFilesFixture.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

class LookingAtAFolder : public DiskFilesFixture
{};

TEST_F(LookingAtAFolder, FindsThatItTakesNoNewFile)
{
    constexpr uid_t nobody = 65534;
    const uid_t user = geteuid();
    chmod(folder.path().c_str(), 0555);
    if (user == 0) {
        ASSERT_EQ(seteuid(nobody), 0);  // root may write anywhere
    }

    const std::string refusal = refusalOf([&] { files.lookReplaceable(folder.path("out")); });
    const std::string ofTrial = refusalOf([&] { files.demandReplaceable(folder.path("out")); });

    ASSERT_EQ(seteuid(user), 0);
    chmod(folder.path().c_str(), 0755);
    EXPECT_EQ(refusal, "File not created: Permission denied: " + folder.path("out"));
    EXPECT_EQ(refusal, ofTrial);
}

}  // namespace
