#include "femap/com/bulk/IDIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace femap::com::bulk
{
namespace
{

using Found = std::optional<std::size_t>;

TEST(IDIndex, FindsIDsInTheirOrderAndAgain)
{
    IDIndex places({2, 3, 7});

    EXPECT_EQ(places.find(2), Found(0));
    EXPECT_EQ(places.find(2), Found(0));
    EXPECT_EQ(places.find(3), Found(1));
    EXPECT_EQ(places.find(7), Found(2));
    EXPECT_EQ(places.find(7), Found(2));
    EXPECT_EQ(places.find(2), Found(0));
}

TEST(IDIndex, FindsNoIDThatIsNotThere)
{
    IDIndex places({2, 3, 7});
    IDIndex none;

    EXPECT_EQ(places.find(1), std::nullopt);
    EXPECT_EQ(places.find(5), std::nullopt);
    EXPECT_EQ(places.find(8), std::nullopt);
    EXPECT_EQ(places.find(3), Found(1));
    EXPECT_EQ(none.find(3), std::nullopt);
}

TEST(IDIndex, FindsIDsInAnyOrder)
{
    std::mt19937 random(20);
    std::vector<int> ids;
    for (int id = 3; id < 600; id += 1 + static_cast<int>(random() % 5))
        ids.push_back(id);
    IDIndex places(ids);

    for (int tries = 0; tries < 5000; ++tries) {
        const int id = static_cast<int>(random() % 610);
        const auto place = std::lower_bound(ids.begin(), ids.end(), id);
        const bool isThere = place != ids.end() && *place == id;
        ASSERT_EQ(places.find(id),
                  isThere ? Found(static_cast<std::size_t>(place - ids.begin())) : std::nullopt);
    }
}

}  // namespace
}  // namespace femap::com::bulk
