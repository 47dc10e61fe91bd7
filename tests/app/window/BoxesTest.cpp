#include "Hand.h"
#include "WindowFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using driver::Hand;
using driver::waitUntil;

namespace
{

// The boxes with real keys and a real mouse.
struct Boxes : driver::Window
{
    Hand hand;

    void SetUp() override { hand.awaitKeyboardAt(form.window()); }

    HWND fieldOf(std::string_view box)
    {
        return FindWindowExW(form.control(box), nullptr, L"Edit", nullptr);
    }
    void enter(std::string_view box)
    {
        hand.clickAt(driver::middleOf(fieldOf(box)));
        EXPECT_TRUE(waitUntil([&] { return form.hasFocus(box); }));
    }
    void empty(std::string_view box)
    {
        enter(box);
        hand.key({"Home", "shift+End", "Delete"});
        EXPECT_TRUE(textBecomes(box, ""));
    }
    bool isOpen(std::string_view box)
    {
        return SendMessageW(form.control(box), CB_GETDROPPEDSTATE, 0, 0) != 0;
    }
    bool textBecomes(std::string_view box, const std::string& text)
    {
        return waitUntil([&] { return form.text(box) == text; });
    }
    /// The selected letters, as "first-behind the last one".
    std::string marked(std::string_view box)
    {
        const auto marks = static_cast<DWORD>(SendMessageW(fieldOf(box), EM_GETSEL, 0, 0));
        return std::to_string(LOWORD(marks)) + "-" + std::to_string(HIWORD(marks));
    }
    /// Opens the list of solvers by an arrow and goes to the other solver.
    void goToTheOtherSolver()
    {
        enter("Solver");
        hand.key({"Down"});
        EXPECT_TRUE(waitUntil([&] { return isOpen("Solver"); }));
        EXPECT_EQ(form.text("Solver"), "NXNastran");
        hand.key({"Up"});
        EXPECT_TRUE(textBecomes("Solver", "NENastran"));
    }
    /// How often the solver's procedure ran for the engineer. Closes the form.
    int solverChoices()
    {
        form.settle();
        PostMessageW(form.window(), WM_CLOSE, 0, 0);
        EXPECT_EQ(process.exitCode(), 0U);
        const std::string log = files.log();
        constexpr std::string_view line = "At start of Solver_Click";
        int count = 0;
        for (std::size_t place = log.find("At end of Load Form");
             (place = log.find(line, place)) != std::string::npos; place += line.size())
            ++count;
        return count;
    }
};

TEST_F(Boxes, TypedLettersBecomeTheItemThatBeginsSo)
{
    empty("Optimizer");

    hand.type("k");
    const bool isComplete = textBecomes("Optimizer", "KORVA");
    const std::string afterOne = marked("Optimizer");
    hand.type("OR");

    EXPECT_TRUE(isComplete);
    EXPECT_EQ(afterOne, "1-5");
    EXPECT_TRUE(waitUntil([&] { return marked("Optimizer") == "3-5"; })) << marked("Optimizer");
    EXPECT_EQ(form.text("Optimizer"), "KORVA");
}

TEST_F(Boxes, AnAccessKeySelectsTheOldChoiceForTheLettersThatFollow)
{
    for (int i = 0; i < 2; ++i) {
        enter("Solver");
        hand.key({"alt+d"});
        EXPECT_TRUE(waitUntil([&] { return form.hasFocus("CommandLine"); }));

        hand.key({"alt+s"});

        EXPECT_TRUE(waitUntil([&] { return marked("Solver") == "0-9"; })) << marked("Solver");
    }
    hand.type("ne");
    EXPECT_TRUE(textBecomes("Solver", "NENastran"));
}

TEST_F(Boxes, ATextThatNoItemBeginsWithStaysAsItIsTyped)
{
    empty("Optimizer");

    hand.type("vOmbra");

    EXPECT_TRUE(textBecomes("Optimizer", "VOmbra")) << form.text("Optimizer");
}

TEST_F(Boxes, NothingIsCompletedAfterBackspaceOrDelete)
{
    empty("Optimizer");
    hand.type("ko");
    EXPECT_TRUE(textBecomes("Optimizer", "KORVA"));

    hand.key({"BackSpace"});
    const bool afterBackspace = textBecomes("Optimizer", "KO");
    hand.key({"BackSpace"});
    const bool afterAnother = textBecomes("Optimizer", "K");
    hand.type("o");
    const bool isCompleteAgain = textBecomes("Optimizer", "KORVA");
    hand.key({"Delete"});

    EXPECT_TRUE(afterBackspace);
    EXPECT_TRUE(afterAnother);
    EXPECT_TRUE(isCompleteAgain);
    EXPECT_TRUE(textBecomes("Optimizer", "KO"));
}

TEST_F(Boxes, NothingIsCompletedInTheMiddleOfAText)
{
    empty("Optimizer");
    hand.type("RVA");
    EXPECT_TRUE(textBecomes("Optimizer", "RVA"));
    hand.key({"Home"});

    hand.type("KO");

    EXPECT_TRUE(waitUntil([&] { return marked("Optimizer") == "2-2"; })) << marked("Optimizer");
    EXPECT_EQ(form.text("Optimizer"), "KORVA");
}

TEST_F(Boxes, EnterTakesTheItemThatWasGoneToInTheListOnce)
{
    const std::string before = form.text("CommandLine");
    goToTheOtherSolver();
    const std::string whileOpen = form.text("CommandLine");

    hand.key({"Return"});

    EXPECT_EQ(whileOpen, before);
    EXPECT_TRUE(waitUntil([&] { return form.text("CommandLine") != before; }));
    EXPECT_FALSE(isOpen("Solver"));
    EXPECT_EQ(form.text("Solver"), "NENastran");
    EXPECT_EQ(solverChoices(), 1);
}

TEST_F(Boxes, TabTakesTheItemThatWasGoneToInTheListOnce)
{
    const std::string before = form.text("CommandLine");
    goToTheOtherSolver();

    hand.key({"Tab"});

    EXPECT_TRUE(waitUntil([&] { return form.text("CommandLine") != before; }));
    EXPECT_TRUE(waitUntil([&] { return form.hasFocus("Optimizer"); }));
    EXPECT_EQ(form.text("Solver"), "NENastran");
    EXPECT_EQ(solverChoices(), 1);
}

TEST_F(Boxes, EscapeLeavesTheOldChoice)
{
    const std::string before = form.text("CommandLine");
    goToTheOtherSolver();

    hand.key({"Escape"});

    EXPECT_TRUE(textBecomes("Solver", "NXNastran"));
    EXPECT_TRUE(waitUntil([&] { return !isOpen("Solver"); }));
    hand.key({"Tab"});
    EXPECT_TRUE(waitUntil([&] { return form.hasFocus("Optimizer"); }));
    EXPECT_EQ(form.text("CommandLine"), before);
    EXPECT_EQ(solverChoices(), 0);
}

TEST_F(Boxes, AClickElsewhereLeavesTheOldChoice)
{
    goToTheOtherSolver();

    hand.moveTo(driver::middleOf(form.control("CommandLine")));
    hand.clickAt(driver::middleOf(form.control("CommandLine")));

    EXPECT_TRUE(textBecomes("Solver", "NXNastran"));
    EXPECT_EQ(solverChoices(), 0);
}

TEST_F(Boxes, AListThatIsOpenedAndClosedChoosesNothing)
{
    enter("Solver");

    hand.key({"Page_Down"});
    const bool isOpened = waitUntil([&] { return isOpen("Solver"); });
    hand.key({"F4"});

    EXPECT_TRUE(isOpened);
    EXPECT_TRUE(waitUntil([&] { return !isOpen("Solver"); }));
    EXPECT_EQ(form.text("Solver"), "NXNastran");
    EXPECT_EQ(solverChoices(), 0);
}

TEST_F(Boxes, AClosedBoxLeavesTheWheelToTheForm)
{
    SetWindowPos(form.window(), nullptr, 0, 0, 400, 260, SWP_NOMOVE | SWP_NOZORDER);
    enter("InputSelection");
    const LONG before = form.placeOf("InputSelection").top;

    hand.turnWheel(driver::middleOf(fieldOf("InputSelection")), -1);

    EXPECT_TRUE(waitUntil([&] { return form.placeOf("InputSelection").top < before; }));
    EXPECT_EQ(form.text("InputSelection"), "Nodes");
}

}  // namespace
