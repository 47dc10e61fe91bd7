#include "system/FileKey.h"
#include "system/Files.h"

#include <gtest/gtest.h>

namespace
{

TEST(KeyOfFile, IsSixteenLettersAndDigits)
{
    const std::string key = sys::keyOfFile("/models/beam.modfem");

    EXPECT_EQ(key.size(), 16U);
    EXPECT_EQ(key.find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_NE(key, sys::keyOfFile("/models/beam2.modfem"));
}

TEST(KeyOfFile, IsTheSameForSpellingsThatThePlatformTakesForTheSame)
{
    const bool isFolded = sys::pathSeparators.size() > 1;

    EXPECT_EQ(sys::keyOfFile("C:\\Models\\Tr\xC3\xA4ger.modfem") ==
                  sys::keyOfFile("c:/models/TR\xC3\x84GER.MODFEM"),
              isFolded);
}

}  // namespace
