#include "fake/GenerateFixture.h"
#include "fake/TemporaryFolder.h"
#include "generate/GenerationDriver.h"
#include "preview/PreviewText.h"
#include "scaling/CountedMemory.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace scaling
{
namespace
{

constexpr std::size_t megabyte = 1'000'000;

/// A study of files of some megabytes on the real disk.
class LargePreview : public testing::Test
{
protected:
    static constexpr int rows = 100'000;

    LargePreview()
    {
        context.application = f.femap.attach();
        f.femap.modelName = folder.path("beam.neu");
        f.form.Optimizer.Text = "Ombra";
        std::vector<std::string> texts;
        for (int row = 1; row <= rows; ++row)
            texts.push_back("AThicknessWithALongNameSoThatTheFilesGetLargeAtProperty" +
                            std::to_string(row) + "\t0.25000000000000001\tProp\t1\tpval\t0");
        f.form.InputsList.replaceRows(std::move(texts));
        generate::GenerateButton_Click(context);
        for (int row = 1; row <= rows; row += 2)
            f.form.InputsList.setText(row, form::valueColumn, "0.5");
    }

    // The most memory that a step has at a time beside what was there before.
    static std::size_t mostOf(const std::function<void()>& step)
    {
        const std::size_t before = heldNow();
        forgetMostHeld();
        step();
        return mostHeld() - before;
    }

    fake::TemporaryFolder folder;
    sys::DiskFiles disk;
    generate::GenerateFixture f;
    sys::System system = sys::withDisk(f.system, disk);
    form::Context context{f.form, f.host, system};
};

TEST_F(LargePreview, HasOnlyPiecesOfTheFilesInMemory)
{
    preview::Preview made;

    const std::size_t most = mostOf([&] { made = preview::previewOfApply(context); });

    std::uint64_t size = 0;
    for (const preview::File& file : made.files)
        size += file.size;
    EXPECT_GT(size, 40 * megabyte);
    EXPECT_EQ(made.find("InputValues.txt")->mark, preview::Mark::Changed);
    EXPECT_LT(most, 8 * megabyte);
}

TEST_F(LargePreview, ShowsALargeFileWithLittleMemory)
{
    std::size_t written = 0;
    std::uint64_t size = 0;

    const std::size_t most = mostOf([&] {
        const preview::Preview made = preview::previewOfApply(context, "InputValues.txt");
        size = made.find("InputValues.txt")->size;
        ASSERT_TRUE(made.texts);
        writeDifference(made, *made.find("InputValues.txt"), system.codePage,
                        [&](std::string_view text) { written += text.size(); });
    });

    EXPECT_GT(size, 6 * megabyte);
    EXPECT_GT(written, size);
    EXPECT_LT(most, 64 * megabyte);
}

}  // namespace
}  // namespace scaling
