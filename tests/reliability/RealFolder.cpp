#include "reliability/RealFolder.h"

#include "generate/ControlFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace reliability
{

void expectThatApplyWorks(RealFolder& place, const std::string& name)
{
    const std::string row = "x\t0.5\tProp\t1\tpval\t0";
    place.form.InputsList.AddItem(row);
    place.form.InputsList.RemoveItem(1);

    place.apply("Velmar");
    place.apply("Ombra");

    EXPECT_EQ(place.read("FDFemap.bat"), "nastran beam.dat\r\n");
    EXPECT_EQ(place.read("InputValues.txt"), "x  0.5\r\n");
    EXPECT_THAT(place.read("CAEInput.txt"), testing::HasSubstr("= " + name + "."));
    for (const std::string& file : {"vELMAR" + name + ".desc", name + ".kvp", name + ".pcs"})
        EXPECT_THAT(place.read(file), testing::Not(testing::IsEmpty())) << file;
    EXPECT_EQ(place.read(name + "Control.txt"), row + "\r\n\r\n");
    place.form.InputsList.setText(1, 1, "7");
    generate::Load_Click(place.context, place.femap.modelName);
    EXPECT_EQ(place.form.InputsList.rowText(1), row);
}

}  // namespace reliability
