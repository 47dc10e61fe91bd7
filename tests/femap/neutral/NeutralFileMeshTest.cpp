#include "fake/NeutralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::neutral::Element;
using femap::neutral::Model;
using femap::neutral::Node;
using testing::ElementsAre;

namespace
{

Node nodeOf(const std::string& line, const std::string& version = "9.3")
{
    const Model model = read(header(version) + block(403, line + "\n"));
    return *model.nodes.begin();
}

Element elementOf(const std::string& lines)
{
    const Model model = read(header() + block(404, lines));
    return *model.elements.begin();
}

}  // namespace

TEST(NeutralFileMesh, ANodeHasAllFieldsOfItsLine)
{
    const Node node = nodeOf("12,3,4,5,60,1,0,1,0,0,1,1.5,-2.5E+1,0.25D-01,7,8,");

    EXPECT_EQ(node.id, 12);
    EXPECT_EQ(node.defCSys, 3);
    EXPECT_EQ(node.outCSys, 4);
    EXPECT_EQ(node.layer, 5);
    EXPECT_EQ(node.color, 60);
    EXPECT_THAT(node.permBC, ElementsAre(true, false, true, false, false, true));
    EXPECT_EQ(node.x, 1.5);
    EXPECT_EQ(node.y, -25);
    EXPECT_EQ(node.z, 0.025);
    EXPECT_EQ(node.type, 7);
}

TEST(NeutralFileMesh, ANodeNeedsNoTypeAndNoSuperelement)
{
    EXPECT_EQ(nodeOf("12,0,0,1,46,0,0,0,0,0,0,1.,2.,3.", "11.").type, 0);
    EXPECT_EQ(nodeOf("12,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,2,", "4.4").type, 2);
    EXPECT_EQ(nodeOf("12,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,2,0,9,9,", "8.2").z, 3);
}

TEST(NeutralFileMesh, WholeNumbersMayStandForReals)
{
    EXPECT_EQ(nodeOf("12,0,0,1,46,0,0,0,0,0,0,1,2,3,   0").y, 2);
}

TEST(NeutralFileMesh, ANodeThatDoesNotFitIsRefusedWithItsLine)
{
    const auto errorOfSecond = [](const std::string& line) {
        return errorOf(header() +
                       block(403, "1,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,\n" + line + "\n"));
    };
    const auto refusal = [](const std::string& problem) {
        return error(9, "block 403 (nodes): " + problem);
    };

    EXPECT_EQ(errorOfSecond("2,0,0,1,46,0,0,0,0,0,0,1.,2."), refusal("field 14 is missing"));
    EXPECT_EQ(errorOfSecond("2,0,x,1"), refusal("field 3 is not a whole number"));
    EXPECT_EQ(errorOfSecond("2,0,1.5,1"), refusal("field 3 is not a whole number"));
    EXPECT_EQ(errorOfSecond("2,,0,1"), refusal("field 2 is not a whole number"));
    EXPECT_EQ(errorOfSecond("2,0,0,1,46,0,0,0,0,0,0,1.,2.x,3."),
              refusal("field 13 is not a number"));
    EXPECT_EQ(errorOfSecond("0,0,0,1"), refusal("the ID 0 is not greater than 0"));
    EXPECT_EQ(errorOfSecond("-5,0,0,1"), refusal("the ID -5 is not greater than 0"));
    EXPECT_EQ(errorOfSecond("4000000000,0,0,1"), refusal("field 1 is not a whole number"));
    EXPECT_EQ(errorOfSecond(""), refusal("field 1 is missing"));
    EXPECT_EQ(errorOfSecond("  "), refusal("field 1 is missing"));
    EXPECT_EQ(errorOfSecond("-1,"), refusal("the ID -1 is not greater than 0"));
}

TEST(NeutralFileMesh, AnElementHasAllFieldsOfItsLines)
{
    const Element element = elementOf(
        "8,124,3,25,12,6,77,1,9,0,0,0,0,0,\n"
        "1,2,3,4,5,6,7,8,9,10,\n11,12,13,14,15,16,17,18,19,20,\n"
        "0.5,0.25,0.125,1,2,3,4,5,6,\n1.,2.,3.,\n4.,5.,6.,\n"
        "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,\n");

    EXPECT_EQ(element.id, 8);
    EXPECT_EQ(element.color, 124);
    EXPECT_EQ(element.propID, 3);
    EXPECT_EQ(element.type, 25);
    EXPECT_EQ(element.topology, 12);
    EXPECT_EQ(element.layer, 6);
    EXPECT_EQ(element.orientID, 77);
    EXPECT_EQ(element.geomID, 9);
    EXPECT_THAT(element.node,
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20));
    EXPECT_THAT(element.orient, ElementsAre(0.5, 0.25, 0.125));
    EXPECT_THAT(element.offset, ElementsAre(1, 2, 3, 4, 5, 6));
}

class NeutralFileElementHead : public testing::TestWithParam<const char*>
{};

TEST_P(NeutralFileElementHead, FitsWhateverTheVersionSays)
{
    std::string lines = quad(1, "1,2,3,4");
    lines.replace(0, lines.find('\n'), GetParam());

    const Element element = elementOf(lines + quad(2, "2,3,4,5"));

    EXPECT_EQ(element.id, 1);
    EXPECT_EQ(element.topology, 4);
    EXPECT_EQ(element.geomID, 0);
}

INSTANTIATE_TEST_SUITE_P(NeutralFile, NeutralFileElementHead,
                         testing::Values("1,124,1,17,4,", "1,124,1,17,4,1,0,0",
                                         "1,124,1,17,4,1,0,0,0,", "1,124,1,17,4,1,0,0,0,0,0,0,",
                                         "1,124,1,17,4,1,0,0,0,0,0,0,0,",
                                         "1,124,1,17,4,1,0,0,0,0,0,0,0,0,"));

TEST(NeutralFileMesh, LinesOfAnElementMayLackFieldsAtTheEnd)
{
    const Element element =
        elementOf("1,124,1,17,4\n1,2,3,4,\n0\n5.,\n0.,0.\n0.,0.,7.\n0,\n" + quad(2, "1,2,3,4"));

    EXPECT_EQ(element.node[3], 4);
    EXPECT_EQ(element.node[4], 0);
    EXPECT_THAT(element.orient, ElementsAre(5, 0, 0));
    EXPECT_EQ(element.offset[5], 7);
}

TEST(NeutralFileMesh, NodeListsOfRigidElementsAreSkipped)
{
    const std::string releases = "0,0,0,0,0,0,0,0,0,0,0,0,";
    const std::string rigid =
        "5,124,0,29,13,1,0,0,\n9,0,0,0,0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n"
        "0.,0.,0.,\n0.,0.,0.,\n0.,0.,0.,\n";
    const std::string twoLists = releases +
                                 "1,0,1,0,\n1,0,1.,1,1,1,0,0,0,\n2,0,1.,1,1,1,0,0,0,\n"
                                 "-1,-1,0.,-1,-1,-1,-1,-1,-1,\n7,0,1.,1,\n-1,\n";

    const Model model = read(header() + block(404, rigid + twoLists + quad(6, "1,2,3,4")));

    EXPECT_THAT(model.elements.ids(), ElementsAre(5, 6));
    EXPECT_EQ(model.elements.find(5)->type, 29);
    EXPECT_EQ(model.elements.find(5)->node[0], 9);
    EXPECT_EQ(model.elements.find(6)->node[3], 4);
}

TEST(NeutralFileMesh, AnElementThatDoesNotFitIsRefusedWithItsLine)
{
    const auto refusal = [](int line, const std::string& problem) {
        return error(line, "block 404 (elements): " + problem);
    };
    const std::string good = quad(1, "1,2,3,4");
    const std::string withList = good.substr(0, good.size() - 9) + "1,0,0,0,\n";

    EXPECT_EQ(errorOf(header() + block(404, "1,124,1,17,\n")), refusal(8, "field 5 is missing"));
    EXPECT_EQ(errorOf(header() + block(404, "1,124,1,17,4,1,0,0,\n1,2,3,4,\n")),
              refusal(10, "the block ends in the middle of a record"));
    EXPECT_EQ(errorOf(header() + block(404, quad(1, "1,2,3,4.5"))),
              refusal(9, "field 4 is not a whole number"));
    EXPECT_EQ(errorOf(header() + block(404, quad(1, "1,2,3,4").substr(20))),
              refusal(10, "field 1 is not a whole number"));
    EXPECT_EQ(errorOf(header() + block(404, withList + "3,0,1.,1,\n")),
              refusal(16, "the block ends in the middle of a record"));
    EXPECT_EQ(errorOf(header() + block(404, withList + "abc\n-1,\n")),
              refusal(15, "field 1 is not a whole number"));
}

TEST(NeutralFileMesh, ManyElementsInDescendingOrderTakeNoLongerThanInAscendingOrder)
{
    constexpr int count = 100'000;
    std::string nodes;
    for (int id = count; id > 0; --id)
        nodes += std::to_string(id) + ",0,0,1,46,0,0,0,0,0,0,0.,0.,0.,\n";

    const Model model = read(header() + block(403, nodes));

    EXPECT_EQ(model.nodes.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(model.nodes.begin()->id, 1);
}

TEST(NeutralFileMesh, ABlockForEveryNodeIsReadAsFastAsOneBlock)
{
    constexpr int count = 100'000;
    std::string text = header();
    for (int id = 1; id <= count; ++id)
        text += block(403, std::to_string(id) + ",0,0,1,46,0,0,0,0,0,0,0.,0.,0.,\n");

    EXPECT_EQ(read(text).nodes.size(), static_cast<std::size_t>(count));
}
