#include "fake/GenerateFixture.h"
#include "fake/LoggerFixture.h"
#include "generate/ControlFile.h"

#include <gtest/gtest.h>

#include <ctime>

namespace generate
{

namespace
{

class LongControlFile : public testing::Test
{
protected:
    GenerateFixture f;

    void load(const std::string& content)
    {
        f.files.contents[inWork("beamControl.txt")] = content;
        Load_Click(f.context, f.femap.modelName);
    }
};

}  // namespace

TEST_F(LongControlFile, WithManyLinesOrALineOfTenMillionCharactersIsReadWithinASecond)
{
#ifdef NDEBUG
    constexpr double limit = 1;  // seconds of processor time
#else
    constexpr double limit = 10;  // as much as it takes without the optimiser, but no more
#endif
    std::string manyLines;
    for (int i = 0; i < 100'000; ++i)
        manyLines += "a\t1\r\n";
    const std::string oneLine(10'000'000, 'x');
    fake::start(f.context.log, "INFO", "test.log");
    const std::clock_t begin = std::clock();

    load(manyLines);
    const int rows = f.form.InputsList.Rows();
    load(oneLine + "\r\n\r\n" + std::string(1'000'000, '\t') + "\r\n");

    EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, limit);
    EXPECT_EQ(rows, 100'001);
    EXPECT_EQ(f.form.InputsList.text(1, 0), oneLine);
}

TEST_F(LongControlFile, ShowsItsProgressWhenItTakesLong)
{
    std::string inputs;
    std::string outputs;
    for (int id = 1; id <= 300; ++id) {
        inputs += "xAtNode" + std::to_string(id) + "\t1\tNode\t1\tx\t" + "\r\n";
        outputs += "Mass" + std::to_string(id) + "\t2\tMassTotal\t\tMassProperties" + "\r\n";
    }
    f.system.monotonicSeconds = [this] { return f.seconds += 2; };

    load(inputs + "\r\n" + outputs);

    EXPECT_EQ(f.form.InputsList.Rows(), 301);
    EXPECT_EQ(f.host.progressShown, 2);
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

}  // namespace generate
