#include "Project.h"
#include "form/MainForm.h"
#include "selection/FieldCatalogue.h"
#include "selection/PropertyListDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <vector>

// The user guide tells what the program has, no more and no less.

using house::allMatches;
using house::Document;
using testing::ContainerEq;
using testing::Contains;
using testing::HasSubstr;

namespace
{

using Texts = std::set<std::string>;

const Document& guide()
{
    static const Document page("docs/guide.md");
    return page;
}

Texts asSet(const std::vector<std::string>& texts)
{
    return {texts.begin(), texts.end()};
}

// Without the lines' ends, which may lie within a quotation.
std::string onOneLine(const std::string& text)
{
    return std::regex_replace(text, std::regex("\\s+"), " ");
}

std::vector<std::string> quoted(const std::string& text)
{
    return allMatches(onOneLine(std::regex_replace(text, std::regex("`[^`\n]*`"), "")),
                      "\"([^\"]+)\"");
}

struct NoFemap : femap::Connector
{
    std::unique_ptr<femap::Application> attach() override { return nullptr; }
    std::unique_ptr<femap::Application> create() override { return nullptr; }
};

struct NoDialog : selection::PropertyListHost
{
    void showModal(selection::frmPropertyList&) override {}
};

Texts captions()
{
    const form::MainForm form;
    NoFemap femap;
    NoDialog host;
    const selection::frmPropertyList dialog(femap, host);
    Texts texts = {form.InputsList.text(0, form::nameColumn),
                   form.InputsList.text(0, form::valueColumn),
                   dialog.Caption,
                   dialog.cmdSelect,
                   dialog.cmdDeSelect,
                   dialog.cmdAdd,
                   dialog.cmdCancel};
    for (const form::ControlRow& row : form::controlTable)
        if (!row.caption.empty())
            texts.emplace(row.caption);
    return texts;
}

TEST(TheGuide, NamesEveryControlByItsCaption)
{
    const Texts named = asSet(allMatches(guide().section("Every control"), R"(\*\*([^*]+)\*\*)"));

    EXPECT_THAT(named, ContainerEq(captions()));
}

TEST(TheGuide, NamesWhatTheBoxesOffer)
{
    Texts offered = {"Ombra"};  // not in the list, but it can be typed
    for (const form::ControlRow& row : form::controlTable)
        offered.insert(row.items.begin(), row.items.end());

    EXPECT_THAT(asSet(quoted(guide().section("Every control"))), ContainerEq(offered));
}

TEST(TheGuide, TellsTheKeysInTheOrderOfTheirTable)
{
    std::vector<std::string> keys;
    for (const form::ControlRow& row : form::controlTable)
        if (row.accessKey != 0)
            keys.emplace_back(1, row.accessKey);

    EXPECT_THAT(allMatches(guide().section("Every control"), R"(\| Alt\+(\w) \|)"),
                ContainerEq(keys));
}

TEST(TheGuide, OffersOnlyQuantitiesThatTheCatalogueHas)
{
    Texts fields;
    for (const char* kind : {"Node", "Elem", "Prop", "Matl", "MeshMass"})
        for (const char* subType : {"", "Beam", "Plate", "Rod"})
            for (const auto list = selection::findFieldList(kind, subType);
                 const auto& some : {list->fields, list->commonFields})
                for (const selection::Field& field : some)
                    fields.emplace(field.name);

    for (const std::string& named : allMatches(guide().section("What can be chosen"), "`([^`]+)`"))
        EXPECT_THAT(fields, Contains(named));
}

// "both", "Velmar" or "Ombra" in the second column.
Texts filesFor(const std::string& tool)
{
    return asSet(allMatches(guide().section("Every generated file"),
                            "\n\\| `([^`]+)` \\| (?:both|" + tool + ") \\|"));
}

// The golden files are what the program writes; a test of the generators sees to that.
Texts goldenFiles(const std::string& scenario)
{
    const std::string folder = "tests/golden/example/" + scenario + "/";
    Texts names;
    for (const std::string& path : house::paths())
        if (path.starts_with(folder))
            names.insert(
                std::regex_replace(path.substr(folder.size()), std::regex("panel"), "<name>"));
    return names;
}

TEST(TheGuide, NamesEveryFileThatIsWritten)
{
    EXPECT_THAT(filesFor("Velmar"), ContainerEq(goldenFiles("panel")));
    EXPECT_THAT(filesFor("Ombra"), ContainerEq(goldenFiles("ombra")));
}

TEST(TheGuide, QuotesOnlyMessagesAndWordsOfTheProgram)
{
    std::string sources;
    for (const house::File& file : house::filesThat(house::isProduct))
        sources += file.text;

    for (const std::string& text : quoted(guide().section("When something is wrong")))
        for (const std::string& part : allMatches(text + "...", R"(\s*(.*?)\s*\.\.\.)"))
            EXPECT_THAT(sources, HasSubstr(part)) << text;
}

}  // namespace
