#include "femap/TypeLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>

namespace femap::library
{

namespace
{

// For each interface: two rows of one member must be for different versions.
TEST(TypeLibrary, HasAMemberAndANumberOnceInEachVersion)
{
    for (const Interface& one : interfaces)
        for (const unsigned version : {v11_2, v2021_2, v2201, v2022_1, v2301, v2306}) {
            std::set<std::string> names;
            std::set<int> numbers;
            for (const Member& member : one.members) {
                if ((member.versions & version) == 0)
                    continue;
                std::string name(member.name);
                for (char& c : name)
                    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
                EXPECT_TRUE(names.insert(name).second) << one.name << '.' << member.name;
                EXPECT_TRUE(numbers.insert(member.number).second)
                    << one.name << '.' << member.name << ' ' << member.number;
            }
        }
}

TEST(TypeLibrary, NamesTypesByLettersThatMeanSomething)
{
    for (const Interface& one : interfaces)
        for (const Member& member : one.members) {
            EXPECT_EQ(member.arguments.find_first_not_of("ildbsvILDBSVO"), std::string::npos)
                << one.name << '.' << member.name;
            EXPECT_NE(std::string_view("ildbsvo").find(member.returned), std::string::npos)
                << one.name << '.' << member.name;
            EXPECT_EQ(member.kind == Kind::Indexed,
                      member.kind != Kind::Method && !member.arguments.empty())
                << one.name << '.' << member.name;
        }
}

TEST(TypeLibrary, FindsMembersWhateverTheirCase)
{
    const Member* const found = find("IElem", "OFFSET");

    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->name, "offset");
    EXPECT_EQ(found->kind, Kind::Indexed);
    EXPECT_EQ(found->number, 18004);
    EXPECT_EQ(found->arguments, "ii");
    EXPECT_EQ(found->returned, 'd');
    EXPECT_EQ(found->versions, all);
}

TEST(TypeLibrary, FindsWhatAVersionHasAndNoMore)
{
    EXPECT_NE(find("Imodel", "feOutput", v11_2), nullptr);
    EXPECT_EQ(find("Imodel", "feOutput", since2021), nullptr);
    EXPECT_EQ(find("ISet", "SelectMultiIDV2", v11_2), nullptr);
    EXPECT_EQ(find("IOutputSet", "Get", v11_2)->number, 20000);
    EXPECT_EQ(find("IOutputSet", "Get", v2306)->number, 29004);
    EXPECT_EQ(find("IMatl", "Alphaxz"), nullptr);
    EXPECT_EQ(find("INothing", "Get"), nullptr);
}

TEST(TypeLibrary, KnowsWhichPropertyOfTheApplicationGivesWhichObject)
{
    for (const Interface& one : interfaces) {
        EXPECT_EQ(interfaceOf(one.object)->name, one.name);
        EXPECT_TRUE(one.object.empty() || find("Imodel", one.object)->returned == 'o')
            << one.object;
    }
    EXPECT_EQ(interfaceOf("Visible"), nullptr);
}

}  // namespace

}  // namespace femap::library
