#include "FormDriver.h"
#include "FormFiles.h"
#include "Hand.h"
#include "app/window/KeptPlaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

using driver::FormDriver;
using driver::FormFiles;
using driver::Process;
using driver::waitUntil;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using window::keptPlaces;
using window::KeptPlaces;

namespace
{

TEST(KeptPlacesText, ComesBackAsItWas)
{
    KeptPlaces places;
    places.window = {-10, 20, 600, 700};
    places.isMaximised = true;
    places.inputWidths = {2400, 0, 15};
    places.outputWidths = {1};
    places.inputShare = 333;

    EXPECT_EQ(keptPlaces(toText(places)), places);
    EXPECT_EQ(keptPlaces(toText(KeptPlaces())), KeptPlaces());
}

TEST(KeptPlacesText, LosesOnlyLinesThatAreNotRight)
{
    for (const char* const line :
         {"window 0 0 0 700", "window 1 2 3", "window a 0 1 1", "share 1001", "share 2 3",
          "inputs 10 -1", "other 1", "", "\xFF\xFE", "share 99999999999999999999"})
        EXPECT_EQ(keptPlaces(std::string(line) + "\noutputs 7 8\n"), keptPlaces("outputs 7 8\n"))
            << line;
}

// A form, and the one that is started after it.
struct FromRunToRun : testing::Test
{
    FormFiles files;
    std::optional<Process> process;
    std::optional<FormDriver> form;

    void start()
    {
        form.reset();
        process.emplace(driver::programPath("embedded-form.exe"), L"panel.neu $form.log$DEBUG",
                        files.folder());
        form.emplace(*process);
        form->settle();
    }
    void close()
    {
        PostMessageW(form->window(), WM_CLOSE, 0, 0);
        EXPECT_EQ(process->exitCode(), 0U);
    }
    void addMaterials(const std::vector<std::string>& fields)
    {
        form->choose("InputSelection", "Materials");
        form->press("InputsButton");
        form->add(fields);
        form->settle();
    }
    std::vector<std::string> inputs() { return form->rows("InputsList", 1); }
    RECT place()
    {
        RECT result{};
        GetWindowRect(form->window(), &result);
        return result;
    }
    int columnWidth(const char* list, WPARAM column)
    {
        return static_cast<int>(SendMessageW(form->control(list), LVM_GETCOLUMNWIDTH, column, 0));
    }
};

TEST_F(FromRunToRun, PlaceColumnsAndShareStayAsTheyWere)
{
    start();
    SetWindowPos(form->window(), nullptr, 120, 90, 700, 640, SWP_NOZORDER);
    form->settle();
    const HWND list = form->control("OutputsList");
    const int given = columnWidth("OutputsList", 0);
    const POINT edge = driver::placeIn(list, {given - 1, 8});
    driver::Hand().drag(edge, {edge.x + 37, edge.y});
    EXPECT_TRUE(waitUntil([&] { return columnWidth("OutputsList", 0) == given + 37; }));
    const RECT before = place();
    close();

    start();

    EXPECT_TRUE(waitUntil([&] { return columnWidth("OutputsList", 0) == given + 37; }));
    const RECT after = place();
    EXPECT_TRUE(EqualRect(&after, &before));
    EXPECT_EQ(columnWidth("InputsList", 0), given);
    close();
}

TEST_F(FromRunToRun, AMaximisedFormIsMaximisedAgainAndKnowsItsPlace)
{
    start();
    SetWindowPos(form->window(), nullptr, 100, 100, 700, 640, SWP_NOZORDER);
    close();
    start();
    const RECT before = place();
    ShowWindow(form->window(), SW_SHOWMAXIMIZED);
    form->settle();
    close();

    start();

    EXPECT_TRUE(IsZoomed(form->window()));
    ShowWindow(form->window(), SW_RESTORE);
    form->settle();
    const RECT after = place();
    EXPECT_TRUE(EqualRect(&after, &before));
    close();
}

TEST_F(FromRunToRun, RowsOfAFormThatWasEndedByForceComeBackByKeysAndGoAgain)
{
    start();
    addMaterials({"Ex", "Density"});
    const auto before = inputs();
    ASSERT_THAT(before, SizeIs(6));
    process->kill();

    start();
    EXPECT_THAT(form->text("StatusLine"),
                HasSubstr("6 rows were not applied: Ctrl+Shift+Z brings them back"));
    EXPECT_THAT(inputs(), SizeIs(0));

    driver::Hand hand;
    hand.awaitKeyboardAt(form->window());
    hand.key({"ctrl+shift+z"});
    EXPECT_TRUE(waitUntil([&] { return inputs() == before; })) << form->text("StatusLine");
    hand.key({"ctrl+z"});
    EXPECT_TRUE(waitUntil([&] { return inputs().empty(); }));
    close();
}

TEST_F(FromRunToRun, AppliedRowsAreNotOffered)
{
    start();
    addMaterials({"Ex"});
    form->press("GenerateButton");
    form->settle();
    ASSERT_TRUE(waitUntil([&] { return files.has("panelControl.txt"); }));
    process->kill();

    start();

    EXPECT_THAT(form->text("StatusLine"), Not(HasSubstr("not applied")));
    EXPECT_THAT(inputs(), Not(SizeIs(0)));
    close();
}

}  // namespace
