#include "study/StudyRunner.h"

#include "app/StartUp.h"
#include "app/WhichFemap.h"
#include "femap/NumberText.h"
#include "findings/FindingText.h"
#include "form/ListControls.h"
#include "preview/PreviewText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace study
{

using app::Ended;
using app::Started;
using form::Kind;
using form::kindOf;
using form::MainForm;
using form::NamedControl;
using form::ParameterGrid;

namespace
{

// "a, b, c" of the names in a table.
template <class Table>
std::string namesOf(const Table& table)
{
    std::string result;
    for (const auto& row : table)
        result.append(result.empty() ? "" : ", ").append(row.name);
    return result;
}

// The row of that name. Raises ScriptError, with a list of all names, when there is none.
template <class Table>
auto rowNamed(const Table& table, const std::string& name, const std::string& problem,
              const ScriptLine& line)
{
    const auto found = std::ranges::find(table, name, [](const auto& row) { return row.name; });
    if (found == std::end(table))
        throw ScriptError(line.number, '"' + name + "\" " + problem + " " + namesOf(table));
    return *found;
}

// The controls of some kinds, as messages list them: those of the first kinds come first.
std::vector<NamedControl> controlsOf(const MainForm& form,
                                     std::initializer_list<std::initializer_list<Kind>> all)
{
    std::vector<NamedControl> result;
    for (const auto& kinds : all)
        for (const NamedControl& each : form.controls())
            if (std::ranges::count(kinds, each.kind()) > 0)
                result.push_back(each);
    return result;
}

// What a control shows, line by line.
std::string textOf(const MainForm& form, const NamedControl& control)
{
    std::string text;
    const auto show = [&](auto member) {
        const auto& shown = form.*member;
        if constexpr (requires { shown.Text; })
            text = shown.Text + '\n';
        else if constexpr (requires { shown.Caption; })
            text = shown.Caption + '\n';
        else if constexpr (requires { shown.rows(); })
            for (const std::string& row : shown.rows())
                text += row + '\n';
    };
    std::visit(show, control.member);
    return text;
}

NamedControl gridNamed(const MainForm& form, const std::string& name, const ScriptLine& line)
{
    return rowNamed(controlsOf(form, {{kindOf<ParameterGrid>}}), name, "is no grid; the grids are",
                    line);
}

// A number that the action needs; what says which.
int numberIn(const std::string& text, const std::string& what, const ScriptLine& line)
{
    const auto number = femap::wholeNumber(text);
    if (!number)
        throw ScriptError(line.number, line.action + " needs " + what +
                                           " as a whole number, not \"" + text + '"');
    return *number;
}

}  // namespace

std::string findingsText(const std::vector<findings::Finding>& found, FindingsForm form,
                         const std::string& where)
{
    if (form == FindingsForm::Json)
        return findings::jsonOf(found) + '\n';
    std::string text;
    for (const findings::Finding& finding : found)
        text += findings::lineOf(finding) + '\n';
    return text + where + findings::summary(findings::counted(found)) + '\n';
}

// clang-format off
const StudyRunner::Action StudyRunner::actions[] = {
    {"start",      &StudyRunner::start},
    {"set",        &StudyRunner::set},
    {"pick",       &StudyRunner::pick},
    {"choose",     &StudyRunner::choose},
    {"click",      &StudyRunner::click},
    {"select",     &StudyRunner::select},
    {"key",        &StudyRunner::key},
    {"refresh",    &StudyRunner::refresh},
    {"stepback",   &StudyRunner::stepback},
    {"event",      &StudyRunner::event},
    {"open",       &StudyRunner::open},
    {"closemodel", &StudyRunner::closemodel},
    {"put",        &StudyRunner::put},
    {"activate",   &StudyRunner::activate},
    {"print",      &StudyRunner::print},
    {"check",      &StudyRunner::check},
    {"preview",    &StudyRunner::preview},
    {"close",      &StudyRunner::close},
};
// clang-format on

StudyRunner::StudyRunner(const StudyWorld& world)
    : world_(world),
      host_(world.progress),
      program_(world.connector, host_, world.dialogs, world.system)
{
    host_.follow(program_.form().StatusLine);
    program_.keepProvenance(world.keepsProvenance);
}

void StudyRunner::run(StudyScript& script)
{
    while (const auto line = script.next())
        perform(*line);
    world_.dialogs.checkNothingIsLeft();
}

void StudyRunner::unload()
{
    if (isStarted_ && program_.tellUnsavedChanges(app::unsavedInStudy))
        world_.problems << app::unsavedInStudy << '\n';
    if (isStarted_)
        program_.close();
    tellLogFailure();
}

// Why there is no log, or none any more: once. The script goes on without it.
void StudyRunner::tellLogFailure()
{
    if (!program_.logFailure().empty() && !std::exchange(logFailureIsTold_, true))
        world_.problems << program_.logFailure() << '\n';
}

void StudyRunner::perform(const ScriptLine& line)
{
    const Action action = rowNamed(actions, line.action, "is no action; the actions are", line);
    const bool starts = action.procedure == &StudyRunner::start;
    if (!starts && !isStarted_)
        throw Unavailable(line.number,
                          "the form is not started yet; begin the script with a line "
                          "\"start MODEL$LOG NAME$LEVEL\"");
    if (starts && isStarted_)
        throw ScriptError(line.number, "the form is started already; remove this line");
    if (program_.isClosed())
        throw ScriptError(line.number, "the form is closed; nothing can be done with it any more");
    world_.dialogs.setLine(line.number);
    (this->*action.procedure)(line);
    tellLogFailure();
}

void StudyRunner::start(const ScriptLine& line)
{
    isStarted_ = true;
    const Started started = program_.start(line.argument);
    tellLogFailure();
    constexpr const char* notFound = "FEMAP does not run and could not be started: ";
    if (started == Started::FemapNotFound)
        throw ScriptError(line.number, program_.withLog(notFound + program_.femapFailure()));
    if (!program_.femapInUse().empty())
        world_.problems << program_.femapInUse() << '\n';
    if (!program_.openFailure().empty())
        throw ScriptError(line.number, program_.openFailure());
    if (started == Started::ByError)
        throw ScriptError(line.number, program_.withLog(program_.lastFailure()));
    tellProblem();
}

void StudyRunner::set(const ScriptLine& line)
{
    std::string_view text = line.argument;
    const std::string name = takeWord(text);
    const NamedControl control =
        rowNamed(controlsOf(program_.form(), {{kindOf<form::ComboBox>}, {kindOf<form::TextBox>}}),
                 name, "cannot be set; set takes", line);
    requireEnabled(control, line);
    if (auto* const box = control.as<form::ComboBox>())
        checkEnd(program_.enterText(*box, std::string(text)), line);
    else
        control.as<form::TextBox>()->Text = text;
}

void StudyRunner::pick(const ScriptLine& line)
{
    world_.dialogs.queue(parsePick(line));
}

void StudyRunner::choose(const ScriptLine& line)
{
    world_.dialogs.queue(parseChoice(line));
}

void StudyRunner::click(const ScriptLine& line)
{
    const NamedControl button = rowNamed(controlsOf(program_.form(), {{kindOf<form::Button>}}),
                                         line.argument, "is no button; the buttons are", line);
    requireEnabled(button, line);
    checkEnd(program_.raise(form::click(button.name)), line);
}

void StudyRunner::select(const ScriptLine& line)
{
    std::string_view rest = line.argument;
    const std::string name = takeWord(rest);
    const NamedControl control = gridNamed(program_.form(), name, line);
    requireEnabled(control, line);
    ParameterGrid& grid = *control.as<ParameterGrid>();
    const auto takeRow = [&] {
        const int row = numberIn(takeWord(rest), "a row", line);
        if (row < 1 || row >= grid.Rows())
            throw ScriptError(line.number, name + " has no row " + std::to_string(row) +
                                               "; its last row is " +
                                               std::to_string(grid.Rows() - 1));
        return row;
    };
    const int first = takeRow();
    const int last = rest.empty() ? first : takeRow();
    if (!rest.empty())
        throw ScriptError(line.number, "select takes GRID ROW [LAST] and nothing more");
    grid.Row = first;
    grid.RowSel = last;
}

void StudyRunner::key(const ScriptLine& line)
{
    std::string_view rest = line.argument;
    const NamedControl grid = gridNamed(program_.form(), takeWord(rest), line);
    requireEnabled(grid, line);
    const int code = numberIn(std::string(rest), "a key code", line);
    checkEnd(program_.raise({grid.name, form::What::KeyDown}, code), line);
}

void StudyRunner::refresh(const ScriptLine& line)
{
    const MainForm& form = program_.form();
    const NamedControl grid = gridNamed(form, line.argument, line);
    const NamedControl& button =
        form.named(form.*form::listOf(form, *grid.as<ParameterGrid>()).refresh);
    requireEnabled(button, line);
    checkEnd(program_.raise({button.name, form::What::SelectedRows}), line);
}

void StudyRunner::stepback(const ScriptLine& line)
{
    if (!line.argument.empty())
        throw ScriptError(line.number, "stepback takes nothing after it");
    program_.stepBack();
}

void StudyRunner::event(const ScriptLine& line)
{
    const int code = numberIn(line.argument, "an event code", line);
    checkEnd(program_.raiseFemapEvent(code), line);
    tellProblem();
}

void StudyRunner::open(const ScriptLine& line)
{
    openModel(requireHost(line), behind_, line);
    checkEnd(program_.raiseFemapEvent(static_cast<int>(femap::EventCode::NewModel)), line);
    tellProblem();
}

void StudyRunner::closemodel(const ScriptLine& line)
{
    closeModel(requireModel(line), behind_, line);
    checkEnd(program_.raiseFemapEvent(static_cast<int>(femap::EventCode::EndModel)), line);
}

void StudyRunner::put(const ScriptLine& line)
{
    changeModel(requireModel(line), line);
}

void StudyRunner::activate(const ScriptLine& line)
{
    activateSet(requireModel(line), line);
}

void StudyRunner::print(const ScriptLine& line)
{
    const MainForm& form = program_.form();
    const auto printables =
        controlsOf(form, {{kindOf<ParameterGrid>},
                          {kindOf<form::ComboBox>},
                          {kindOf<form::TextBox>},
                          {kindOf<form::StatusText>},
                          {kindOf<form::Frame>, kindOf<form::Label>, kindOf<form::Button>}});
    world_.output << textOf(
        form, rowNamed(printables, line.argument, "cannot be printed; print takes", line));
}

void StudyRunner::check(const ScriptLine& line)
{
    if (!line.argument.empty())
        throw ScriptError(line.number, "check takes nothing after it");
    const std::vector<findings::Finding> found = findings();
    foundErrors_ = foundErrors_ || findings::counted(found).errors != 0;
    world_.output << findingsText(found, world_.findingsForm);
}

void StudyRunner::preview(const ScriptLine& line)
{
    const preview::Preview made = program_.preview(line.argument);
    if (line.argument.empty()) {
        world_.output << preview::textOf(made);
        return;
    }
    const preview::File* const file = made.find(line.argument);
    if (file == nullptr)
        throw ScriptError(line.number, '"' + line.argument +
                                           "\" is no file that \"Apply\" would write now; those "
                                           "are listed by preview without a name");
    preview::writeDifference(made, *file, world_.system.codePage,
                             [&](std::string_view text) { world_.output << text; });
}

std::vector<findings::Finding> StudyRunner::findings()
{
    return program_.check();
}

void StudyRunner::close(const ScriptLine& line)
{
    if (!line.argument.empty())
        throw ScriptError(line.number, "close takes nothing after it");
    world_.dialogs.checkNothingIsLeft();
    unload();
}

femap::embedded::Host& StudyRunner::requireHost(const ScriptLine& line) const
{
    if (world_.host == nullptr)
        throw ScriptError(line.number, line.action +
                                           " changes the embedded model host only; run the script "
                                           "with --femap=embedded");
    return *world_.host;
}

femap::embedded::Host& StudyRunner::requireModel(const ScriptLine& line) const
{
    femap::embedded::Host& host = requireHost(line);
    if (!host.model)
        throw Unavailable(line.number, "FEMAP has no model open");
    return host;
}

void StudyRunner::requireEnabled(const NamedControl& which, const ScriptLine& line)
{
    if (which.control->Enabled)
        return;
    throw Unavailable(
        line.number, std::string(which.name) + " is disabled: " +
                         std::string(program_.isConnected() ? app::noModelOpen : app::femapIsGone));
}

// What the status line says of a model that came, once. That none is there shows when one is used.
void StudyRunner::tellProblem()
{
    const std::string& problem = program_.form().status.gravest();
    if (!problem.empty() && problem != told_ && problem != app::noModelOpen)
        world_.problems << problem << '\n';
    told_ = problem;
}

void StudyRunner::checkEnd(Ended ended, const ScriptLine& line) const
{
    if (ended == Ended::ByError)
        throw ScriptError(line.number, program_.withLog(program_.lastFailure()));
}

}  // namespace study
