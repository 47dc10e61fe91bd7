#include "selection/SelectionFixture.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace selection
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

Texts operator+(Texts left, const Texts& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

// The lists as an engineer sees them.
const Texts nodeList = {"x", "y", "z", "defCSys", "outCSys"};
const Texts elementList = {"orientA", "orientB",  "orientC", "node1",         "node2",
                           "node3",   "node4",    "node5",   "MaterialAngle", "PlateOffset",
                           "geomID",  "orientID", "topology"};
const Texts beamList = {"End A Area", "I1",          "I2",          "I12",
                        "J",          "ShearAr, K1", "ShearAr, K2", "NS Mass/Len"};
const Texts plateList = {"Thickness",   "Thick Corn2", "Thick Corn3", "Thick Corn4",
                         "NS Mass/Len", "Top Fiber",   "Bot Fiber"};
const Texts rodList = {"Area", "J", "Ctors", "NS Mass/Len", "Initial Tension"};
const Texts commonList = {"Color", "layer", "type", "matlID", "refCS"};
const Texts materialList = {"Ex",
                            "Ey",
                            "Ez",
                            "Gx",
                            "Gy",
                            "Gz",
                            "Nuxy",
                            "Nuyz",
                            "Nuxz",
                            "Alphaxx",
                            "Alphayy",
                            "Alphazz",
                            "Alphaxy",
                            "Alphayz",
                            "Alphaxz",
                            "Kxx",
                            "Kyy",
                            "Kzz",
                            "Kxy",
                            "Kyz",
                            "Kxz",
                            "Cp",
                            "Density",
                            "Damping",
                            "RefTemp",
                            "TensionLimit1",
                            "TensionLimit2",
                            "CompressionLimit1",
                            "CompressionLimit2",
                            "ShearLimit",
                            "TsaiWu"};
const Texts bodyLoadList = {
    "BodyAccelA",       "BodyAccelB",       "BodyAccelC",         "BodyAccelD",
    "BodyAccelE",       "BodyAccelF",       "BodyVelocityA",      "BodyVelocityB",
    "BodyVelocityC",    "BodyOriginA",      "BodyOriginB",        "BodyOriginC",
    "BodyDefTemp",      "BodyRefTemp",      "StefanBoltzmann",    "RadiationAmbientElem",
    "TempOffset",       "FreeConvExponent", "FCFluidCoductivity", "FCFluidHeatCapacity",
    "FCFluidViscosity", "FCFluidDensity"};
const Texts massList = {
    "Length",    "Area",         "Volume",          "MassStructural", "MassNonStructural",
    "MassTotal", "StructuralCG", "NonStructuralCG", "TotalCG",        "Inertia",
    "InertiaCG"};
const Texts constraintList = {"Degrees of freedom 0",
                              "Degrees of freedom 1",
                              "Degrees of freedom 2",
                              "Degrees of freedom 3",
                              "Degrees of freedom 4",
                              "Degrees of freedom 5",
                              "color",
                              "layer",
                              "expanded"};

struct FilledList
{
    const char* name;
    const char* kind;
    const char* subType;
    const char* caption;
    Texts items;
};

const FilledList listCases[] = {
    {"Node", "Node", "", "Node Properties", nodeList},
    {"Elem", "Elem", "", "Element Properties", elementList},
    {"Bar", "Prop", "Bar", "Bar Properties", beamList + commonList},
    {"Beam", "Prop", "Beam", "Beam Properties", beamList + commonList},
    {"Plate", "Prop", "Plate", "Plate Properties", plateList + commonList},
    {"Rod", "Prop", "Rod", "Rod Properties", rodList + commonList},
    {"Shear", "Prop", "Shear", "Undefined Property", commonList},
    {"Undefined", "Prop", "", "Undefined Property", commonList},
    {"Matl", "Matl", "", "Material Properties", materialList},
    {"LoadSet", "LoadSet", "", "LoadSet Properties", bodyLoadList},
    {"MeshMass", "MeshMass", "", "Total Mesh Properties", massList},
    {"BCNode", "BCNode", "", "Constraint Properties", constraintList},
    {"BCGeom", "BCGeom", "", "Constraint Properties", constraintList},
};

// IDIndex of the fields of a property in its array of values.
const std::map<std::string, int> beamPlaces = {
    {"End A Area", 0}, {"I1", 1},          {"I2", 2},          {"I12", 3},
    {"J", 4},          {"ShearAr, K1", 5}, {"ShearAr, K2", 6}, {"NS Mass/Len", 7}};
const std::map<std::string, std::map<std::string, int>> pvalPlaces = {
    {"Bar Properties", beamPlaces},
    {"Beam Properties", beamPlaces},
    {"Plate Properties",
     {{"Thickness", 0},
      {"Thick Corn2", 1},
      {"Thick Corn3", 2},
      {"Thick Corn4", 3},
      {"NS Mass/Len", 7},
      {"Top Fiber", 8},
      {"Bot Fiber", 9}}},
    {"Rod Properties",
     {{"Area", 0}, {"J", 4}, {"Ctors", 5}, {"NS Mass/Len", 7}, {"Initial Tension", 8}}},
};

struct Place
{
    std::string member;
    std::string index;
};

// Where FEMAP keeps a field, told from its name and its position in the list.
Place placeOf(const FilledList& list, int position)
{
    const std::string& field = list.items[static_cast<std::size_t>(position)];
    const bool isCommon =
        std::find(commonList.begin(), commonList.end(), field) != commonList.end();
    if (list.kind == std::string("Prop") && !isCommon)
        return {"pval", std::to_string(pvalPlaces.at(list.caption).at(field))};
    const auto beginsWith = [&](const char* text) { return field.rfind(text, 0) == 0; };
    if (beginsWith("orient"))
        return {"orient", std::to_string(position)};
    if (beginsWith("node"))
        return {"node", std::to_string(position - 3)};
    if (beginsWith("BodyAccel"))
        return {"BodyAccel", std::to_string(position)};
    if (beginsWith("BodyV"))
        return {"BodyVelocity", std::to_string(position - 6)};
    if (beginsWith("BodyO"))
        return {"BodyOrigin", std::to_string(position - 9)};
    if (beginsWith("Degrees"))
        return {"dof", std::to_string(position)};
    return {field, list.kind == std::string("MeshMass") ? std::to_string(position) : ""};
}

class FieldLists : public testing::TestWithParam<FilledList>
{};

TEST_P(FieldLists, AreShownUnderTheirHeading)
{
    SelectionFixture f;

    f.dialog.GetPropertyList(GetParam().kind, GetParam().subType);

    EXPECT_EQ(f.dialog.Label2, GetParam().caption);
    EXPECT_EQ(itemsOf(f.dialog), GetParam().items);
}

TEST_P(FieldLists, HandBackMemberAndIndexOfEveryChosenField)
{
    SelectionFixture f;
    f.dialog.GetPropertyList(GetParam().kind, GetParam().subType);

    f.dialog.cmdSelect_Click();
    f.dialog.cmdAdd_Click();

    std::map<std::string, std::string> members;
    std::map<std::string, std::string> indexes;
    Texts indexesInOrder;
    for (int position = 0; position < static_cast<int>(GetParam().items.size()); ++position) {
        const std::string& field = GetParam().items[static_cast<std::size_t>(position)];
        const Place place = placeOf(GetParam(), position);
        members[field] = place.member;
        if (place.index.empty())
            continue;
        indexes[field] = place.index;
        indexesInOrder.push_back(place.index);
    }
    EXPECT_EQ(f.dialog.selectedFields, GetParam().items);
    EXPECT_EQ(f.dialog.fieldMembers, members);
    EXPECT_EQ(f.dialog.fieldIndexes, indexes);
    EXPECT_EQ(f.dialog.chosenEntries(), indexesInOrder);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, FieldLists, testing::ValuesIn(listCases),
                         [](const auto& each) { return std::string(each.param.name); });

TEST(frmPropertyList, HasItsCaptions)
{
    SelectionFixture f;

    EXPECT_EQ(f.dialog.Caption, "Select Properties");
    EXPECT_EQ(f.dialog.Label2, "Properties:");
    EXPECT_EQ(f.dialog.cmdSelect, "Select All");
    EXPECT_EQ(f.dialog.cmdDeSelect, "Deselect All");
    EXPECT_EQ(f.dialog.cmdCancel, "Cancel");
    EXPECT_FALSE(f.dialog.cmdAdd.empty());
}

TEST(frmPropertyList, ShowsTheConstraintListWhenItIsFresh)
{
    SelectionFixture f;

    f.dialog.Form_Load();

    EXPECT_EQ(f.dialog.Label2, "Constraint Properties");
    EXPECT_EQ(itemsOf(f.dialog), constraintList);
}

TEST(frmPropertyList, ShowsNothingUnderTheOldHeadingForAnUnknownKind)
{
    SelectionFixture f;
    f.dialog.GetPropertyList("Node", "");

    f.dialog.GetPropertyList("Curve", "");

    EXPECT_EQ(f.dialog.Label2, "Node Properties");
    EXPECT_THAT(itemsOf(f.dialog), IsEmpty());
}

TEST(frmPropertyList, StartsCleanEachTime)
{
    SelectionFixture f;
    f.dialog.GetPropertyList("Elem", "");
    f.dialog.cmdSelect_Click();
    f.dialog.cmdAdd_Click();

    f.dialog.GetPropertyList("Node", "");

    EXPECT_EQ(itemsOf(f.dialog), nodeList);
    EXPECT_THAT(f.dialog.selectedFields, IsEmpty());
    EXPECT_THAT(f.dialog.fieldMembers, IsEmpty());
    EXPECT_THAT(f.dialog.fieldIndexes, IsEmpty());
    EXPECT_THAT(f.dialog.chosenEntries(), IsEmpty());
    for (const auto& item : f.dialog.lstProperties.items)
        EXPECT_FALSE(item.selected);
}

TEST(frmPropertyList, HandsBackNothingWhenNothingIsSelected)
{
    SelectionFixture f;
    f.dialog.GetPropertyList("Elem", "");
    f.dialog.cmdSelect_Click();
    f.dialog.cmdDeSelect_Click();

    f.dialog.cmdAdd_Click();

    EXPECT_THAT(f.dialog.selectedFields, IsEmpty());
    EXPECT_THAT(f.dialog.fieldMembers, IsEmpty());
    EXPECT_THAT(f.dialog.fieldIndexes, IsEmpty());
    EXPECT_THAT(f.dialog.chosenEntries(), IsEmpty());
}

TEST(frmPropertyList, HandsBackNothingWhenItIsCancelled)
{
    SelectionFixture f;
    f.dialog.GetPropertyList("Elem", "");
    f.dialog.cmdSelect_Click();

    f.dialog.cmdCancel_Click();

    EXPECT_THAT(f.dialog.selectedFields, IsEmpty());
    EXPECT_THAT(f.dialog.chosenEntries(), IsEmpty());
}

TEST(frmPropertyList, KeepsTheChosenFieldsInListOrder)
{
    SelectionFixture f;
    f.list.choose({"topology", "node3", "orientID"});
    f.dialog.GetPropertyList("Elem", "");

    f.dialog.Show();

    EXPECT_THAT(f.dialog.selectedFields, ElementsAre("node3", "orientID", "topology"));
    EXPECT_EQ(f.dialog.fieldMembers.at("node3"), "node");
    EXPECT_EQ(f.dialog.fieldIndexes.at("node3"), "2");
    EXPECT_EQ(f.dialog.fieldMembers.at("orientID"), "orient");
    EXPECT_EQ(f.dialog.fieldIndexes.at("orientID"), "11");
    EXPECT_FALSE(f.dialog.fieldIndexes.contains("topology"));
}

TEST(frmPropertyList, TakesAFieldThatIsNotInTheListForAPlainMember)
{
    SelectionFixture f;
    f.dialog.GetPropertyList("Node", "");

    EXPECT_EQ(f.dialog.GetMemberName("layer"), "layer");
    EXPECT_EQ(f.dialog.GetMemberIndex("layer"), "");
}

TEST(frmPropertyList, IsVisibleFromShowUntilItIsAcceptedOrCancelled)
{
    for (const auto button : {&frmPropertyList::cmdAdd_Click, &frmPropertyList::cmdCancel_Click}) {
        SelectionFixture f;
        f.dialog.GetPropertyList("Node", "");
        std::vector<bool> visible;
        f.list.answer([&](frmPropertyList& dialog) {
            visible.push_back(dialog.Visible);
            (dialog.*button)();
            visible.push_back(dialog.Visible);
        });

        f.dialog.Show();

        EXPECT_THAT(visible, ElementsAre(true, false));
        EXPECT_FALSE(f.dialog.Visible);
    }
}

TEST(frmPropertyList, OffersNothingWhenFemapCannotBeReached)
{
    SelectionFixture f;
    f.dialog.GetPropertyList("Node", "");
    f.connector.failAtFirst("attach", 2);

    EXPECT_THROW(f.dialog.GetPropertyList("Node", ""), sys::RuntimeError);
    EXPECT_THROW(f.dialog.UpdateCollection(), sys::RuntimeError);

    EXPECT_THAT(itemsOf(f.dialog), IsEmpty());
}

}  // namespace
}  // namespace selection
