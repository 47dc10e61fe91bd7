#include "Hand.h"
#include "ListViews.h"
#include "ProductFixture.h"
#include "app/window/PropertyListWindow.h"
#include "standin/ExampleStudy.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

using comtest::Contents;
using driver::FormDriver;
using driver::waitUntil;
using testing::SizeIs;
using window::PropertyListWindow;

namespace
{

// All that these tests do by hand goes through here. A key that is pressed with another one held
// counts once.
class CountingHand
{
public:
    void key(const std::string& key)
    {
        hand_.key({key});
        ++keys_;
    }
    void type(const std::string& letters)
    {
        hand_.type(letters);
        keys_ += static_cast<int>(letters.size());
    }
    void clickAt(POINT place)
    {
        hand_.clickAt(place);
        ++clicks_;
    }
    void awaitKeyboardAt(HWND window) { hand_.awaitKeyboardAt(window); }

    int keys() const { return keys_; }
    int clicks() const { return clicks_; }

private:
    driver::Hand hand_;
    int keys_ = 0;
    int clicks_ = 0;
};

void await(const std::string& what, const std::function<bool()>& condition)
{
    if (!waitUntil(condition))
        throw std::runtime_error("Waited in vain for " + what);
}

// A line of the list of quantities, and the letters that lead there from the line before; none: the
// list begins with it.
struct Quantity
{
    std::string line;
    std::string letters;
};

// What the ten steps need, done in one of two ways. Each waits for what comes of it.
class Way
{
public:
    Way(FormDriver& driven, CountingHand& counting) : form(driven), hand(counting) {}
    virtual ~Way() = default;

    virtual void press(const std::string& button) = 0;
    virtual void choose(const std::string& box, const std::string& item) = 0;
    virtual void tickLine(HWND list, int item, const std::string& letters) = 0;
    virtual void add(HWND dialog) = 0;
    virtual void remove(int input) = 0;
    virtual void refresh() = 0;

protected:
    FormDriver& form;
    CountingHand& hand;
};

class ByKeys : public Way
{
public:
    using Way::Way;

    void press(const std::string& button) override { hand.key("alt+" + accessKeyOf(button)); }
    // Its first letter completes each of the items; the next button takes it over.
    void choose(const std::string& box, const std::string& item) override
    {
        hand.key("alt+" + accessKeyOf(box));
        await(box, [&] { return form.hasFocus(box); });
        hand.type(firstLetterOf(item));
        await(item, [&] { return form.text(box) == item; });
    }
    void tickLine(HWND list, int item, const std::string& letters) override
    {
        if (!letters.empty())
            hand.type(letters);
        await(letters, [&] {
            return SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED) ==
                   item;
        });
        hand.key("space");
    }
    void add(HWND) override { hand.key("Return"); }
    void remove(int input) override
    {
        hand.key("alt+" + accessKeyOf("OutputSelection"));
        hand.key("shift+Tab");
        await("the list of inputs", [&] { return form.hasFocus("InputsList"); });
        hand.type(firstLetterOf(form.cell("InputsList", input, 0)));
        await("the row",
              [&] { return form.selectedRows("InputsList") == std::vector<int>{input}; });
        hand.key("Delete");
    }
    void refresh() override { hand.key("F5"); }

private:
    // A capital would be pressed with Shift.
    static std::string firstLetterOf(const std::string& name)
    {
        return {static_cast<char>(name.front() | ('a' - 'A'))};
    }
    static std::string accessKeyOf(std::string_view control)
    {
        const auto* const row =
            std::ranges::find(form::controlTable, control, &form::ControlRow::name);
        return {static_cast<char>(row->accessKey - 'A' + 'a')};
    }
};

class ByClicks : public Way
{
public:
    using Way::Way;

    void press(const std::string& button) override
    {
        hand.clickAt(driver::middleOf(form.control(button)));
    }
    void choose(const std::string& box, const std::string& item) override
    {
        const HWND combo = form.control(box);
        hand.clickAt(driver::arrowOf(combo));
        DWORD process = 0;
        GetWindowThreadProcessId(combo, &process);
        HWND list = nullptr;
        await(box, [&] {
            list = driver::visibleWindow(process, L"ComboLBox");
            return list != nullptr && SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0;
        });
        const LRESULT place = SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(windows::toWide(item).c_str()));
        hand.clickAt(driver::itemPlaceIn(list, combo, static_cast<int>(place)));
        await(item, [&] {
            return form.text(box) == item && SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) == 0;
        });
    }
    void tickLine(HWND list, int item, const std::string&) override
    {
        bringIntoView(list, item);
        hand.clickAt(driver::placeIn(list, driver::rowPlaceIn(list, item)));
    }
    void add(HWND dialog) override
    {
        hand.clickAt(driver::middleOf(GetDlgItem(dialog, PropertyListWindow::idAdd)));
    }
    void remove(int input) override
    {
        const HWND list = form.control("InputsList");
        bringIntoView(list, input);
        hand.clickAt(driver::placeIn(list, driver::rowPlaceIn(list, input)));
        await("the row",
              [&] { return form.selectedRows("InputsList") == std::vector<int>{input}; });
        press("ClearInputSelection");
    }
    void refresh() override
    {
        press("RefreshInputs");
        form.settle();
        press("RefreshOutputs");
    }

private:
    // By clicks below the handle of the scroll bar.
    void bringIntoView(HWND list, int item)
    {
        const auto ask = [&](UINT message) {
            return static_cast<int>(SendMessageW(list, message, 0, 0));
        };
        while (item >= ask(LVM_GETTOPINDEX) + ask(LVM_GETCOUNTPERPAGE)) {
            const int before = ask(LVM_GETTOPINDEX);
            RECT place{};
            GetWindowRect(list, &place);
            const int arrow = GetSystemMetrics(SM_CYVSCROLL);
            hand.clickAt({place.right - GetSystemMetrics(SM_CXVSCROLL) / 2 - 2,
                          place.bottom - arrow - arrow / 2});
            await("the list to scroll", [&] { return ask(LVM_GETTOPINDEX) != before; });
        }
    }
};

// The ten steps of the guide with the example panel, from a form that was just started. FEMAP's own
// dialogs answer by themselves.
struct TenSteps : driver::Product
{
    CountingHand hand;

    void SetUp() override
    {
        start((files.folder() / "panel.neu").wstring() + L"$panel.log$DEBUG");
        hand.awaitKeyboardAt(form->window());
    }
    std::string log() const { return files.read("korva/panel.log"); }
    void awaitLogged(const std::string& line)
    {
        await(line, [&] { return log().find(line) != std::string::npos; });
        form->settle();
    }
    void awaitRows(const std::string& list, int count)
    {
        await(std::to_string(count) + " rows", [&] { return form->rowCount(list) == count; });
        form->settle();
    }

    void select(Way& way, const std::string& button, const std::string& picked,
                const std::vector<Quantity>& quantities)
    {
        if (!picked.empty())
            femap.pick(picked);
        way.press(button);
        if (quantities.empty())
            return;
        const HWND dialog = form->dialog();
        hand.awaitKeyboardAt(dialog);
        const HWND list = form->list();
        const std::vector<std::string> offered = form->offered();
        for (const Quantity& each : quantities) {
            const auto found = std::ranges::find(offered, each.line);
            const auto item = static_cast<int>(found - offered.begin());
            way.tickLine(list, item, each.letters);
            await(each.line, [&] { return driver::isTicked(list, item); });
        }
        way.add(dialog);
        await("the list of quantities to go", [&] { return IsWindow(dialog) == FALSE; });
        hand.awaitKeyboardAt(form->window());
    }
    void selectInputs(Way& way, const std::string& kind, const std::string& picked,
                      const std::vector<Quantity>& quantities, int rows)
    {
        way.choose("InputSelection", kind);
        select(way, "InputsButton", picked, quantities);
        awaitRows("InputsList", rows);
    }
    void selectOutputs(Way& way, const std::string& kind, const std::string& picked,
                       const std::vector<Quantity>& quantities, int rows)
    {
        way.choose("OutputSelection", kind);
        select(way, "OutputsButton", picked, quantities);
        awaitRows("OutputsList", rows);
    }
    // The ninth step leaves solver and tool as they are.
    void perform(Way& way)
    {
        way.press("ClearAll");
        awaitLogged("At end of ClearAll_Click");

        selectInputs(way, "Properties", "1", {{"Thickness", ""}, {"NS Mass/Len", "ns"}}, 2);
        selectInputs(way, "Materials", "1 2", {{"Ex", ""}, {"Density", "de"}}, 6);
        selectInputs(way, "Nodes", "163 441", {{"x", ""}, {"y", "y"}, {"z", "z"}}, 12);
        selectInputs(way, "Functions", "1", {}, 13);
        selectOutputs(way, "Nodes", "163 441",
                      {{"1 - Total Translation", ""}, {"4 - T3 Translation", "t3"}}, 4);
        selectOutputs(way, "Mass Properties", "",
                      {{"Area", "a"}, {"MassTotal", "to"}, {"TotalCG", "to"}}, 9);

        const std::vector<std::string> names = form->rows("InputsList", 1);
        way.remove(static_cast<int>(std::ranges::find(names, "NSMassLenAtProp1") - names.begin()));
        awaitRows("InputsList", 12);
        way.refresh();
        awaitLogged("At the end of RefreshInputs_Click");
        awaitLogged("At the end of RefreshOutputs_Click");

        way.press("GenerateButton");
        await("the files", [&] { return files.has("panelControl.txt"); });
        form->settle();
        RecordProperty("keys", hand.keys());
        RecordProperty("clicks", hand.clicks());
    }
    Contents takeStudy() const
    {
        Contents study = comtest::takeFiles(files.folder());
        std::erase_if(study, [](const auto& file) { return file.first.ends_with(".log"); });
        return study;
    }
    // The script of the guide, replayed without a window in the folder that the form left.
    void expectFilesOfTheScript()
    {
        PostMessageW(form->window(), WM_CLOSE, 0, 0);
        EXPECT_EQ(process->exitCode(), 0U);
        const Contents byHand = takeStudy();
        EXPECT_EQ(
            comtest::replay(comtest::writeScript("docs/guide.md", files.folder()), "embedded"), 0U);

        EXPECT_THAT(byHand, SizeIs(8));
        EXPECT_EQ(byHand, takeStudy());
    }
};

TEST_F(TenSteps, AreDoneByKeysAlone)
{
    ByKeys way(*form, hand);

    perform(way);

    EXPECT_EQ(hand.clicks(), 0);
    EXPECT_LE(hand.keys(), 55);
    expectFilesOfTheScript();
}

TEST_F(TenSteps, AreDoneByPlainClicksAlone)
{
    ByClicks way(*form, hand);

    perform(way);

    EXPECT_EQ(hand.keys(), 0);
    EXPECT_LE(hand.clicks(), 42);
    expectFilesOfTheScript();
}

}  // namespace
