#include "fake/FormFixture.h"
#include "fake/TemporaryFolder.h"
#include "generate/ControlFile.h"
#include "generate/GenerationDriver.h"
#include "generate/ModelPath.h"
#include "logging/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace reliability
{

using generate::splitModelPath;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

const std::string separator(1, logging::pathSeparator);

/// The form on the real disk, with a model in a folder of its own.
class RealFolder
{
public:
    /// The model lies below the folder, level by level.
    explicit RealFolder(const std::vector<std::string>& levels = {},
                        const std::string& modelName = "beam")
    {
        std::string path = folder.path();
        for (const std::string& level : levels) {
            path += separator + level;
            system.files.createFolder(path);
        }
        modelFolder = path + separator;
        femap.modelName = modelFolder + modelName + ".mod";
        context.application = femap.attach();
    }

    void apply(const std::string& tool)
    {
        form.CommandLine.Text = "nastran beam.dat";
        form.Optimizer.Text = tool;
        generate::GenerateButton_Click(context);
    }
    std::string read(const std::string& name) { return system.files.read(modelFolder + name); }

    fake::TemporaryFolder folder;
    std::string modelFolder;
    logging::System system = logging::standardSystem();
    fake::QueuedDialogs dialogs;
    femap::embedded::Host femap{dialogs};
    fake::FakeFormHost host;
    form::MainForm form;
    form::Context context{form, host, system};
};

// Each file is where and what it should be, and the selection is found again.
void expectThatApplyWorks(RealFolder& place, const std::string& name)
{
    const std::string row = "x\t0.5\tProp\t1\tpval\t0";
    place.form.InputsList.AddItem(row);
    place.form.InputsList.RemoveItem(1);

    place.apply("Velmar");
    place.apply("Ombra");

    EXPECT_EQ(place.read("FDFemap.bat"), "nastran beam.dat\r\n");
    EXPECT_EQ(place.read("InputValues.txt"), "x  0.5\r\n");
    EXPECT_THAT(place.read("CAEInput.txt"), HasSubstr("= " + name + "."));
    for (const std::string& file : {"vELMAR" + name + ".desc", name + ".kvp", name + ".pcs"})
        EXPECT_THAT(place.read(file), testing::Not(IsEmpty())) << file;
    EXPECT_EQ(place.read(name + "Control.txt"), row + "\r\n\r\n");
    place.form.InputsList.setText(1, 1, "7");
    generate::Load_Click(place.context);
    EXPECT_EQ(place.form.InputsList.rowText(1), row);
}

std::vector<std::string> levelsOfLength(std::size_t length)
{
    std::vector<std::string> levels;
    for (; length > 100; length -= 101)
        levels.push_back(std::string(100, 'd'));
    if (length > 1)
        levels.push_back(std::string(length - 1, 'e'));
    return levels;
}

}  // namespace

TEST(Apply, WorksInFoldersOfUnusualNames)
{
    RealFolder place({"with  blanks", "v1.2.3", "it's & 100% (a) [b] {c} #1 ~x~ $HOME %TEMP%",
                      "Träger Ø12", "梁 κ", "e\u0301"});

    expectThatApplyWorks(place, "beam");
}

TEST(Apply, WorksForModelsOfUnusualNames)
{
    for (const std::string name : {"a b", "v1.2", "it's", "R&D", "100%", "%TEMP%", "beam (2)"}) {
        RealFolder place({}, name);

        expectThatApplyWorks(place, name);
    }
}

TEST(Apply, WorksForAModelWithANonAsciiName)
{
    RealFolder place({}, "Träger Ø12");

    place.apply("Ombra");

    EXPECT_THAT(place.folder.listing(),
                testing::IsSupersetOf({"Träger Ø12.kvp", "Träger Ø12.pcs", "Träger Ø12.par",
                                       "Träger Ø12Control.txt"}));
    EXPECT_THAT(place.read("Träger Ø12.kvp"), HasSubstr("set linkfile \"Tr\xE4ger \xD8"
                                                        "12.pcs\""));
}

TEST(Apply, WorksWithPathsOfAnyLength)
{
    for (const std::size_t length : {240U, 260U, 1000U}) {
        const std::size_t above = fake::TemporaryFolder().path().size();
        RealFolder place(levelsOfLength(length - above - std::string("/beam.mod").size()));
        ASSERT_NEAR(static_cast<double>(place.femap.modelName.size()), static_cast<double>(length),
                    12);

        expectThatApplyWorks(place, "beam");
    }
}

TEST(Apply, SaysWhichFileCannotBeWrittenBecauseOfALongNameAndCutsNone)
{
    RealFolder place({}, std::string(300, 'n'));

    try {
        place.apply("Ombra");
        ADD_FAILURE() << "there is no file system with such names";
    }
    catch (const logging::RuntimeError& error) {
        EXPECT_THAT(error.description(),
                    AllOf(StartsWith(place.modelFolder + std::string(300, 'n') +
                                     ".kvp was not "
                                     "written: "),
                          HasSubstr("try again")));
    }

    EXPECT_THAT(place.folder.listing(), IsEmpty());
}

TEST(Apply, SaysThatTheFolderIsGone)
{
    RealFolder place;
    place.femap.modelName = place.modelFolder + "gone" + separator + "beam.mod";

    try {
        place.apply("Ombra");
        ADD_FAILURE() << "the folder is not there";
    }
    catch (const logging::RuntimeError& error) {
        EXPECT_THAT(error.description(), HasSubstr("beam.kvp was not written: "));
        EXPECT_THAT(error.description(), HasSubstr("No such file or directory"));
        EXPECT_THAT(error.description(), HasSubstr("See that its folder is there"));
    }
}

#ifdef _WIN32
TEST(APathOnWindows, MayHaveEitherSlashAndAnyBeginning)
{
    EXPECT_EQ(splitModelPath("C:/models/a b/beam.mod").folder, "C:/models/a b/");
    EXPECT_EQ(splitModelPath("C:/models/a b/beam.mod").name, "beam");
    EXPECT_EQ(splitModelPath("C:\\work/v1.2\\beam.mod").folder, "C:\\work/v1.2\\");
    EXPECT_EQ(splitModelPath("\\\\server\\share\\beam.mod").folder, "\\\\server\\share\\");
    EXPECT_EQ(splitModelPath("\\\\?\\C:\\work\\beam.mod").folder, "\\\\?\\C:\\work\\");
    EXPECT_EQ(splitModelPath("\\\\?\\UNC\\server\\share\\beam.mod").name, "beam");
}

TEST(Apply, WorksWithForwardSlashes)
{
    RealFolder place({"inner"});
    for (char& c : place.femap.modelName)
        c = c == '\\' ? '/' : c;

    expectThatApplyWorks(place, "beam");
}

TEST(Apply, WorksWithThePrefixForLongPaths)
{
    RealFolder place({"inner"});
    place.femap.modelName = "\\\\?\\" + place.femap.modelName;

    expectThatApplyWorks(place, "beam");
}

TEST(Apply, SaysWhyAShareCannotBeReached)
{
    RealFolder place;
    place.femap.modelName = "\\\\no-such-server\\share\\beam.mod";

    try {
        place.apply("Ombra");
        ADD_FAILURE() << "there is no such server";
    }
    catch (const logging::RuntimeError& error) {
        EXPECT_THAT(error.description(),
                    StartsWith("\\\\no-such-server\\share\\beam.kvp was not written: "));
    }
}
#else
TEST(APathElsewhere, MayHaveBackslashesInItsNames)
{
    EXPECT_EQ(splitModelPath("/models/a\\b.mod").folder, "/models/");
    EXPECT_EQ(splitModelPath("/models/a\\b.mod").name, "a\\b");
}
#endif

}  // namespace reliability
